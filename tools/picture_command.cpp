// SPDX-License-Identifier: MIT
/// kez picture: pictures out of the store and back.
#include "commands.h"
#include "picture.h"
#include "user_error.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace kez::tools {

namespace {

// To standard output, which is expected to go into a pipe or a file.
void decode(const std::string& path)
{
    const Picture picture = readPicture(path);
    std::fprintf(stderr, "%d %d\n", picture.width, picture.height);
    const std::size_t written
        = std::fwrite(picture.pixels.data(), 1, picture.pixels.size(), stdout);
    if (written != picture.pixels.size() || std::fflush(stdout) != 0)
        throw UserError("standard output: not all of the picture could be written");
}

struct Conversion {
    std::string from;
    std::string to;
};

} // namespace

void addPictureCommand(CLI::App& app)
{
    CLI::App* command = app.add_subcommand("picture", "Read pictures and turn them into others");
    command->require_subcommand(1);

    const auto path = std::make_shared<std::string>();
    CLI::App* decoding = command->add_subcommand("decode",
        "Write a picture's bytes (blue, green, red; bottom row first) to standard output and its "
        "width and height to standard error");
    decoding->add_option("file", *path, "A .cam, .tga, .targa, .clip, .png, .bmp or .jpg file")
        ->required();
    decoding->callback([path] { decode(*path); });

    const auto conversion = std::make_shared<Conversion>();
    CLI::App* converting = command->add_subcommand(
        "convert", "Turn a picture into another kind of file, told by the names' endings");
    converting
        ->add_option("in", conversion->from, "A .cam, .tga, .targa, .clip, .png, .bmp or .jpg file")
        ->required();
    converting
        ->add_option("out", conversion->to,
            "The .cam, .tga, .targa, .clip (60 by 45), .png, .bmp or .jpg file to write")
        ->required();
    converting->callback(
        [conversion] { writePicture(conversion->to, readPicture(conversion->from)); });
}

} // namespace kez::tools
