// SPDX-License-Identifier: MIT
/// The picture files in the directory "export" that can be imported, in the order of their names.
#pragma once

#include "core/string.h"

#include <string_view>
#include <vector>

namespace kez {

struct ImportFile {
    String baseName; ///< The short (8.3) one where the long one has more than eight characters.
    String extension; ///< As it is spelt.
};

class ImportList {
public:
    void scan(); ///< Reads the directory anew.

    void clear() { files_.clear(); }

    [[nodiscard]] int count() const { return static_cast<int>(files_.size()); }

    [[nodiscard]] const ImportFile* at(int index) const; ///< Null outside the list.

    /// The first file whose name begins with the text, case ignored; −1 when there is none.
    [[nodiscard]] int find(std::string_view beginning) const;

private:
    std::vector<ImportFile> files_;
};

} // namespace kez
