// SPDX-License-Identifier: MIT
#include "visit_script.h"

#include <windows.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <optional>

namespace kez::player {

namespace {

constexpr int stageWidth = 640;
constexpr int stageHeight = 480;
constexpr int longestWaitMs = 600'000;
constexpr int mostPictures = 20;

struct NamedKey {
    std::string_view name;
    int code;
};

constexpr NamedKey namedKeys[] = {
    { "enter", VK_RETURN },
    { "escape", VK_ESCAPE },
    { "backspace", VK_BACK },
    { "delete", VK_DELETE },
    { "tab", VK_TAB },
    { "space", VK_SPACE },
    { "up", VK_UP },
    { "down", VK_DOWN },
    { "left", VK_LEFT },
    { "right", VK_RIGHT },
    { "home", VK_HOME },
    { "end", VK_END },
};

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Cuts the first word off `rest`, which begins at its next word afterwards.
std::string_view takeWord(std::string_view& rest)
{
    const std::size_t end = std::min(rest.find_first_of(" \t"), rest.size());
    const std::string_view word = rest.substr(0, end);
    rest = trimmed(rest.substr(end));
    return word;
}

std::optional<int> number(std::string_view word, int least, int most)
{
    int value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc {} || end != word.data() + word.size() || value < least || value > most)
        return std::nullopt;
    return value;
}

std::optional<int> keyCode(std::string_view name)
{
    const auto* named = std::ranges::find(namedKeys, name, &NamedKey::name);
    if (named != std::end(namedKeys))
        return named->code;
    if (name.size() == 1 && std::isalnum(static_cast<unsigned char>(name[0])) != 0)
        return std::toupper(static_cast<unsigned char>(name[0]));
    if (name.starts_with('f')) {
        if (const auto function = number(name.substr(1), 1, 12))
            return VK_F1 + *function - 1;
    }
    return std::nullopt;
}

std::string quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

// Each reader fills a step from what follows its word and returns a complaint, or nothing.
using Complaint = std::string;

Complaint nothing(Step&, std::string_view rest)
{
    return rest.empty() ? Complaint {} : "nothing may follow, not " + quoted(rest);
}

Complaint readWait(Step& step, std::string_view rest)
{
    const auto value = number(rest, 0, longestWaitMs);
    step.number = value.value_or(0);
    return value ? Complaint {} : "expected milliseconds up to 600000, not " + quoted(rest);
}

Complaint readPoint(Step& step, std::string_view rest)
{
    const std::string_view all = rest;
    const auto x = number(takeWord(rest), 0, stageWidth - 1);
    const auto y = number(rest, 0, stageHeight - 1);
    step.x = x.value_or(0);
    step.y = y.value_or(0);
    return x && y ? Complaint {} : "expected X Y within 640 x 480, not " + quoted(all);
}

Complaint readKey(Step& step, std::string_view rest)
{
    const auto code = keyCode(rest);
    step.number = code.value_or(0);
    return code ? Complaint {} : quoted(rest) + " is no key";
}

Complaint readText(Step& step, std::string_view rest)
{
    step.text = rest;
    return rest.empty() ? "expected text" : Complaint {};
}

Complaint readShot(Step& step, std::string_view rest)
{
    step.text = rest;
    return rest.ends_with(".png") ? Complaint {} : "expected a file ending in .png";
}

Complaint readUntil(Step& step, std::string_view rest)
{
    const std::string_view what = takeWord(rest);
    if (what == "exit") {
        step.kind = StepKind::UntilExit;
        return nothing(step, rest);
    }
    if (what != "pictures")
        return "expected \"pictures N\" or \"exit\", not " + quoted(what);
    const auto value = number(rest, 0, mostPictures);
    step.number = value.value_or(0);
    return value ? Complaint {} : "expected a number of pictures up to 20, not " + quoted(rest);
}

struct StepWord {
    std::string_view word;
    StepKind kind;
    Complaint (*read)(Step&, std::string_view);
};

constexpr StepWord stepWords[] = {
    { "wait", StepKind::Wait, readWait },
    { "move", StepKind::Move, readPoint },
    { "click", StepKind::Click, readPoint },
    { "key", StepKind::Key, readKey },
    { "type", StepKind::Type, readText },
    { "take", StepKind::Take, nothing },
    { "unplug", StepKind::Unplug, nothing },
    { "plug", StepKind::Plug, nothing },
    { "shot", StepKind::Shot, readShot },
    { "until", StepKind::UntilPictures, readUntil },
    { "quit", StepKind::Quit, nothing },
};

Complaint readStep(Step& step, std::string_view line)
{
    const std::string_view word = takeWord(line);
    const auto* known = std::ranges::find(stepWords, word, &StepWord::word);
    if (known == std::end(stepWords))
        return quoted(word) + " is no step";
    step.kind = known->kind;
    const Complaint complaint = known->read(step, line);
    return complaint.empty() ? complaint : std::string(word) + ": " + complaint;
}

} // namespace

std::variant<std::vector<Step>, VisitFault> parseVisit(std::string_view text)
{
    std::vector<Step> steps;
    for (int line = 1; !text.empty(); ++line) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view content = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        content = trimmed(content.substr(0, content.find('#')));
        if (content.empty())
            continue;
        Step step { .line = line };
        if (const Complaint complaint = readStep(step, content); !complaint.empty())
            return VisitFault { line, complaint };
        steps.push_back(std::move(step));
    }
    return steps;
}

} // namespace kez::player
