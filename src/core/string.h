// SPDX-License-Identifier: MIT
/// The engine's text: names, paths, captions. Bytes with a length and a terminating zero; the
/// buffer grows to exactly what a text needs.
#pragma once

#include <cstddef>
#include <string_view>

namespace kez {

class String {
public:
    String() = default;
    String(const char* text); // NOLINT(google-explicit-constructor): texts are given everywhere
    String(std::string_view text); // NOLINT(google-explicit-constructor)
    String(const String& other);
    String(String&& other) noexcept;
    String& operator=(const String& other);
    String& operator=(String&& other) noexcept;
    ~String();

    [[nodiscard]] int length() const { return length_; }

    [[nodiscard]] bool empty() const { return length_ == 0; }

    /// Bytes allocated, the terminating zero included; 0 before the first text.
    [[nodiscard]] int maximum() const { return maximum_; }

    /// The zero-terminated text; never null. Valid until the next change.
    // NOLINTNEXTLINE(readability-identifier-naming): as every string class has it
    [[nodiscard]] const char* c_str() const { return buffer_ != nullptr ? buffer_ : ""; }

    [[nodiscard]] std::string_view view() const
    {
        return { c_str(), static_cast<std::size_t>(length_) };
    }

    [[nodiscard]] char at(int position) const; ///< 0 outside the text.
    void setAt(int position, char character); ///< Extends with spaces up to the position.
    void replace(char from, char to); ///< Everywhere.

    String& append(std::string_view text);

    String& append(char character) { return append(std::string_view(&character, 1)); }

    /// Takes `count` characters of `text` from `start` on. A count of 0 means up to the end, a
    /// count past the end is cut, a start past the end gives an empty string.
    String& assign(std::string_view text, int start = 0, int count = 0);

    void resize(int length); ///< Cuts, or pads with spaces.
    void cut(int count); ///< Removes `count` characters at the end, or at the start when negative.

    void clear() { resize(0); }

    /// Makes room for `length` characters and the zero in exactly `length` + 1 bytes, when there is
    /// less. The old text stays only with `keepText`.
    void reserve(int length, bool keepText);

    [[nodiscard]] int compare(std::string_view text) const; ///< By byte, as `strcmp`.
    [[nodiscard]] int compareIgnoringCase(std::string_view text) const; ///< 'A'–'Z' equal 'a'–'z'.
    [[nodiscard]] int count(char character) const;
    [[nodiscard]] int find(char character, int start = 0) const; ///< −1 when absent.
    [[nodiscard]] int findLast(char character) const; ///< −1 when absent.
    [[nodiscard]] bool isBlank() const; ///< Nothing but white space (also when empty).
    [[nodiscard]] bool isNumber() const; ///< Decimal digits, at least one, after an optional sign.

    /// As printf. At most 799 characters; what is longer is cut.
    [[gnu::format(printf, 2, 3)]] String& format(const char* format, ...);

    String& setNumber(int number); ///< "%d".
    String& setNumberPadded(int number); ///< At least three characters, with leading "0".

    void dump() const; ///< Length, maximum and text, to the debugger output.

    friend bool operator==(const String& a, const String& b) { return a.view() == b.view(); }

    friend bool operator==(const String& a, std::string_view b) { return a.view() == b; }

    friend bool operator==(const String& a, const char* b) { return a.view() == b; }

private:
    int length_ = 0;
    int maximum_ = 0;
    char* buffer_ = nullptr;
};

} // namespace kez
