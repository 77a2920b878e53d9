// SPDX-License-Identifier: MIT
#include "manifest.h"

#include "media/archive_block.h"
#include "user_error.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>

namespace kez::tools {

namespace {

constexpr int farthestPlace = 1'000'000; // of x, y and depth, either way

class LineParser {
public:
    LineParser(std::string where, std::string_view text)
        : where_(std::move(where))
        , rest_(text)
    {
    }

    // The next word, quotes removed; empty at the end of the line.
    std::optional<std::string> word()
    {
        constexpr std::string_view blanks = " \t\r";
        rest_.remove_prefix(std::min(rest_.find_first_not_of(blanks), rest_.size()));
        if (rest_.empty() || rest_.front() == '#')
            return std::nullopt;
        std::string result;
        bool quoted = false;
        while (!rest_.empty() && (quoted || blanks.find(rest_.front()) == std::string_view::npos)) {
            if (rest_.front() == '"')
                quoted = !quoted;
            else
                result += rest_.front();
            rest_.remove_prefix(1);
        }
        if (quoted)
            fail("a double quote is not closed; put one at the end of the word");
        return result;
    }

    [[nodiscard]] int number(const std::string& key, const std::string& text) const
    {
        int value = 0;
        const char* end = text.data() + text.size();
        const auto [at, error] = std::from_chars(text.data(), end, value);
        if (error != std::errc() || at != end || value < -farthestPlace || value > farthestPlace)
            fail(key + "=" + text + " is no whole number within a million; write for example " + key
                + "=100");
        return value;
    }

    [[nodiscard]] int colours(const std::string& text) const
    {
        constexpr int fewest = 2;
        constexpr int most = 256;
        const int value = number("colours", text);
        if (value < fewest || value > most)
            fail("colours=" + text + " is not between 2 and 256, which a palette can hold");
        return value;
    }

    [[noreturn]] void fail(const std::string& what) const { throw UserError(where_ + ": " + what); }

private:
    std::string where_;
    std::string_view rest_;
};

void takeSpriteKey(
    const LineParser& line, ManifestItem& item, const std::string& key, const std::string& value)
{
    if (key == "depth") {
        item.depth = line.number(key, value);
    } else if (key == "x") {
        item.x = line.number(key, value);
    } else if (key == "y") {
        item.y = line.number(key, value);
    } else if (key == "keep" && value.empty()) {
        item.keep = true;
    } else if (key == "colours") {
        item.colours = line.colours(value);
    } else if (key == "form") {
        item.form = spriteFormNamed(value);
        if (item.form == nullptr)
            line.fail("form=" + value + " is unknown; the forms are " + spriteFormNames());
    } else {
        line.fail("unknown key \"" + key
            + "\"; a sprite's keys are file=, depth=, x=, y=, form=, colours= and keep");
    }
}

void takeKey(const LineParser& line, ManifestItem& item, const std::string& word,
    std::set<std::string>& taken)
{
    const std::size_t equals = word.find('=');
    const std::string key = word.substr(0, equals);
    if (!taken.insert(key).second)
        line.fail("the key \"" + key + "\" stands twice; leave one of them out");
    const std::string value = equals == std::string::npos ? std::string() : word.substr(equals + 1);
    if (key == "file" && value.empty())
        line.fail("file= names no file; write for example file=picture.png, or leave it out");
    else if (key == "file")
        item.file = value;
    else if (item.kind == ManifestItem::Kind::Sprite)
        takeSpriteKey(line, item, key, value);
    else
        line.fail("unknown key \"" + key + "\"; a record's only key is file=");
}

ManifestItem parseItem(LineParser& line, const std::string& kind, int number)
{
    ManifestItem item;
    item.line = number;
    item.form = spriteFormNamed("auto");
    if (kind == "record")
        item.kind = ManifestItem::Kind::Record;
    else if (kind != "sprite")
        line.fail("a line begins with \"sprite\" or \"record\", not with \"" + kind + '"');
    const auto name = line.word();
    if (!name || !isManifestName(*name))
        line.fail("the name is missing (or has an = or a quote in it); write for example " + kind
            + " camRoll");
    item.name = *name;
    const bool isSprite = item.kind == ManifestItem::Kind::Sprite;
    const std::size_t length = name->size() + (isSprite ? 4 : 0);
    if (length > longestRecordName)
        line.fail("the name \"" + *name + "\" has " + std::to_string(length) + " characters"
            + (isSprite ? " with its .sp5" : "") + "; shorten it to at most "
            + std::to_string(longestRecordName));
    item.file = *name + (isSprite ? ".png" : "");
    std::set<std::string> taken;
    while (const auto word = line.word())
        takeKey(line, item, *word, taken);
    return item;
}

void appendWord(std::string& line, const std::string& word)
{
    const bool plain = !word.empty() && word.find_first_of(" \t#") == std::string::npos;
    line.append(plain ? "" : "\"").append(word).append(plain ? "" : "\"");
}

} // namespace

std::vector<ManifestItem> parseManifest(const std::string& path, std::string_view text)
{
    std::vector<ManifestItem> items;
    std::map<std::string, int> lineOfName;
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        LineParser line(path + ":" + std::to_string(number), text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
        const auto kind = line.word();
        if (!kind)
            continue;
        items.push_back(parseItem(line, *kind, number));
        const ManifestItem& item = items.back();
        const bool isSprite = item.kind == ManifestItem::Kind::Sprite;
        const auto [first, isNew] = lineOfName.try_emplace(
            normalisedRecordName(isSprite ? item.name + ".sp5" : item.name), number);
        if (!isNew)
            line.fail("the name \"" + item.name + "\" stands on line "
                + std::to_string(first->second) + " already; give one of them another name");
    }
    return items;
}

bool isManifestName(std::string_view name)
{
    return !name.empty() && std::none_of(name.begin(), name.end(), [](char character) {
        return character == '"' || character == '=' || (character >= 0 && character < ' ');
    });
}

std::string formatManifestItem(const ManifestItem& item)
{
    const bool isSprite = item.kind == ManifestItem::Kind::Sprite;
    std::string text = isSprite ? "sprite " : "record ";
    appendWord(text, item.name);
    if (item.file != item.name + (isSprite ? ".png" : "")) {
        text += ' ';
        appendWord(text, "file=" + item.file);
    }
    if (!isSprite)
        return text;
    text.append(" depth=").append(std::to_string(item.depth));
    if (item.x)
        text.append(" x=").append(std::to_string(*item.x));
    if (item.y)
        text.append(" y=").append(std::to_string(*item.y));
    text.append(" form=").append(item.form->name);
    if (item.colours != 0)
        text.append(" colours=").append(std::to_string(item.colours));
    return item.keep ? text.append(" keep") : text;
}

} // namespace kez::tools
