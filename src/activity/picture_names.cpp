// SPDX-License-Identifier: MIT
#include "activity/picture_names.h"

#include "core/diagnostics.h"
#include "platform/ascii_letters.h"
#include "platform/files.h"

#include <set>
#include <string>
#include <string_view>

namespace kez {

namespace {

constexpr int firstNumberTooLarge = 999;

String& dataPrefix()
{
    static String prefix;
    return prefix;
}

template <typename Taken>
int firstFree(int first, Taken&& isTaken)
{
    int number = first;
    while (number < firstNumberTooLarge && isTaken(number))
        ++number;
    return number < firstNumberTooLarge ? number : firstNumberTooLarge;
}

bool numberedFileExists(
    const char* directory, const char* prefix, int number, const char* extension)
{
    String name;
    makeNumberedName(name, prefix, number);
    return files::exists(makePath(directory, name.c_str(), extension).view());
}

// Without their extension, in lower case. The directory is read once: others put files there, and
// may have put many.
std::set<std::string> exportedNames()
{
    std::set<std::string> names;
    const String directory = makePath("Export", nullptr, nullptr);
    for (const char* extension : { "bmp", "jpg" })
        for (const files::Entry& entry : files::list(directory.view(), extension))
            names.insert(lowerCase(entry.name.substr(0, entry.name.rfind('.'))));
    return names;
}

// "Photo" and "photo" are one directory. It is made under the latter name, where names have case.
void makeDirectory(const char* directory)
{
    String path = dataPrefix();
    path.append(lowerCase(directory));
    if (!files::createDirectory(path.view()))
        reportLastError("The directory %.700s cannot be made.", path.c_str());
}

} // namespace

void setDataPath(const char* dataPath)
{
    dataPrefix() = dataPath;
    if (!dataPrefix().empty())
        dataPrefix().append('\\');
}

const String& makePath(const char* directory, const char* name, const char* extension)
{
    static String path;
    path = dataPrefix();
    if (directory != nullptr) {
        makeDirectory(directory);
        path.append(directory);
    }
    if (name != nullptr) {
        if (directory != nullptr)
            path.append('\\');
        path.append(name);
    }
    if (extension != nullptr)
        path.append('.').append(extension);
    return path;
}

String& makeNumberedName(String& out, const char* prefix, int number)
{
    String digits;
    digits.setNumber(number > 999 ? 0 : number);
    return out.format("%s%3.3s", prefix, digits.c_str());
}

String temporaryName(int number)
{
    String name;
    name.format("~%d", number);
    return name;
}

int findFreeNumber(const char* prefix, int first, const char* extension)
{
    return firstFree(
        first, [&](int number) { return numberedFileExists(prefix, prefix, number, extension); });
}

int findFreeExportNumber()
{
    const std::set<std::string> taken = exportedNames();
    return firstFree(1, [&taken](int number) {
        String name;
        makeNumberedName(name, "export", number);
        return taken.contains(name.c_str());
    });
}

int findFreeImportNumber()
{
    return firstFree(
        1, [](int number) { return numberedFileExists("Photo", "Image", number, "cam"); });
}

bool mayStandInName(std::uint32_t key)
{
    constexpr std::string_view refused = "\"'/<>\\|~";
    return key >= ' ' && key <= '~' && refused.find(static_cast<char>(key)) == refused.npos;
}

String nameWithoutExtension(const String& fileName)
{
    String name = fileName;
    if (const int dot = fileName.findLast('.'); dot >= 0)
        name.resize(dot);
    return name;
}

} // namespace kez
