// SPDX-License-Identifier: MIT
/// The file formats of photographs, for photograph.cpp. Each reads a file from its beginning;
/// failure is empty, with a few words in `problem`.
#pragma once

#include "photograph.h"

namespace kez::driver {

[[nodiscard]] std::optional<Picture> readJpeg(files::Reader& file, std::string& problem);
[[nodiscard]] std::optional<Picture> readPng(files::Reader& file, std::string& problem);

} // namespace kez::driver
