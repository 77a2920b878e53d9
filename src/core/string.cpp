// SPDX-License-Identifier: MIT
#include "core/string.h"

#include "core/diagnostics.h"
#include "platform/ascii_letters.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

namespace kez {

namespace {

constexpr int formattedLimit = 800;

bool isSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

} // namespace

String::String(const char* text)
{
    if (text != nullptr)
        assign(text);
}

String::String(std::string_view text)
{
    assign(text);
}

String::String(const String& other)
{
    assign(other.view());
}

String::String(String&& other) noexcept
    : length_(std::exchange(other.length_, 0))
    , maximum_(std::exchange(other.maximum_, 0))
    , buffer_(std::exchange(other.buffer_, nullptr))
{
}

String& String::operator=(const String& other)
{
    if (this != &other)
        assign(other.view());
    return *this;
}

String& String::operator=(String&& other) noexcept
{
    std::swap(length_, other.length_);
    std::swap(maximum_, other.maximum_);
    std::swap(buffer_, other.buffer_);
    return *this;
}

String::~String()
{
    delete[] buffer_;
}

void String::reserve(int length, bool keepText)
{
    if (length < maximum_)
        return;
    auto* larger = new char[static_cast<std::size_t>(length) + 1]();
    if (keepText && buffer_ != nullptr)
        std::memcpy(larger, buffer_, static_cast<std::size_t>(length_));
    else
        length_ = 0;
    delete[] buffer_;
    buffer_ = larger;
    maximum_ = length + 1;
}

char String::at(int position) const
{
    return position >= 0 && position < length_ ? buffer_[position] : '\0';
}

void String::setAt(int position, char character)
{
    if (position < 0)
        return;
    if (position >= length_)
        resize(position + 1);
    buffer_[position] = character;
}

void String::replace(char from, char to)
{
    std::replace(buffer_, buffer_ + length_, from, to);
}

String& String::append(std::string_view text)
{
    if (text.empty())
        return *this;
    const String kept(
        buffer_ != nullptr && text.data() >= buffer_ && text.data() <= buffer_ + length_
            ? text
            : std::string_view()); // appending a part of itself: the part must outlive the growth
    const std::string_view source = kept.empty() ? text : kept.view();
    const int oldLength = length_;
    const int newLength = oldLength + static_cast<int>(source.size());
    reserve(newLength, true);
    std::memcpy(buffer_ + oldLength, source.data(), source.size());
    length_ = newLength;
    buffer_[length_] = '\0';
    return *this;
}

String& String::assign(std::string_view text, int start, int count)
{
    const int available = static_cast<int>(text.size());
    if (start < 0 || start >= available) {
        clear();
        return *this;
    }
    const int wanted = count == 0 ? available - start : std::clamp(count, 0, available - start);
    reserve(wanted, false); // a part of itself is never longer, so that its buffer stays
    std::memmove(buffer_, text.data() + start, static_cast<std::size_t>(wanted));
    length_ = wanted;
    buffer_[wanted] = '\0';
    return *this;
}

void String::resize(int length)
{
    length = std::max(length, 0);
    if (length == 0 && buffer_ == nullptr)
        return;
    reserve(length, true);
    if (length > length_)
        std::memset(buffer_ + length_, ' ', static_cast<std::size_t>(length - length_));
    length_ = length;
    buffer_[length_] = '\0';
}

void String::cut(int count)
{
    if (count >= 0) {
        resize(length_ - std::min(count, length_));
        return;
    }
    if (length_ == 0)
        return;
    const int removed = count < -length_ ? length_ : -count;
    std::memmove(buffer_, buffer_ + removed, static_cast<std::size_t>(length_ - removed));
    resize(length_ - removed);
}

int String::compare(std::string_view text) const
{
    return view().compare(text);
}

int String::compareIgnoringCase(std::string_view text) const
{
    const std::string_view own = view();
    const std::size_t common = std::min(own.size(), text.size());
    for (std::size_t i = 0; i < common; ++i) {
        const auto a = static_cast<unsigned char>(lowerCase(own[i]));
        const auto b = static_cast<unsigned char>(lowerCase(text[i]));
        if (a != b)
            return a < b ? -1 : 1;
    }
    if (own.size() == text.size())
        return 0;
    return own.size() < text.size() ? -1 : 1;
}

int String::count(char character) const
{
    return static_cast<int>(std::count(buffer_, buffer_ + length_, character));
}

int String::find(char character, int start) const
{
    const auto found = view().find(character, static_cast<std::size_t>(std::max(start, 0)));
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

int String::findLast(char character) const
{
    const auto found = view().rfind(character);
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

bool String::isBlank() const
{
    return std::all_of(buffer_, buffer_ + length_, isSpace);
}

bool String::isNumber() const
{
    const int digits = at(0) == '-' || at(0) == '+' ? 1 : 0;
    return length_ > digits && std::all_of(buffer_ + digits, buffer_ + length_, isDigit);
}

String& String::format(const char* format, ...)
{
    String fresh; // an argument may be this string's own text
    fresh.reserve(formattedLimit, false);
    std::va_list arguments;
    va_start(arguments, format);
    const int written = std::vsnprintf(fresh.buffer_, formattedLimit, format, arguments);
    va_end(arguments);
    fresh.length_ = std::clamp(written, 0, formattedLimit - 1);
    fresh.buffer_[fresh.length_] = '\0';
    *this = std::move(fresh);
    return *this;
}

String& String::setNumber(int number)
{
    return format("%d", number);
}

String& String::setNumberPadded(int number)
{
    return format("%03d", number);
}

void String::dump() const
{
    debugPrint("length=%d maximum=%d", length_, maximum_);
    debugPrint("%s", c_str());
}

} // namespace kez
