// SPDX-License-Identifier: MIT
/// A clean folder for one test, gone with the object.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace kez::test {

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::random_device chance;
        do
            path_ = (std::filesystem::temp_directory_path() / ("kez-" + std::to_string(chance())))
                        .string();
        while (!std::filesystem::create_directory(path_));
    }

    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }

    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

    void put(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(*this / name, std::ios::binary) << bytes;
    }

    /// The bytes of a file; "(none)" when there is none.
    std::string get(const std::string& name) const
    {
        std::ifstream file(*this / name, std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(none)";
    }

    /// Every name in the folder, sorted, whatever it stands for.
    std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            all.push_back(entry.path().filename().string());
        std::ranges::sort(all);
        return all;
    }

private:
    std::string path_;
};

} // namespace kez::test
