// SPDX-License-Identifier: MIT
/// The import popup: a scrolling list of the picture files in the directory "export". The file in
/// the middle of the seven rows is the current one; buttons, arrow keys, a click on a row or the
/// first letters of a name move through the list, the OK button or Enter imports.
#pragma once

#include "activity/import_list.h"
#include "activity/popup.h"
#include "sprites/text.h"

#include <array>
#include <memory>

namespace kez {

class ImportPopup : public Popup {
public:
    static constexpr int rows = 7;
    static constexpr int middleRow = 3;

    ImportPopup();

    [[nodiscard]] static Placement rowPlace(int row);

    void enter() override; ///< Reads the directory.
    void leave() override;
    void serviceFired(Service& service) override;

    [[nodiscard]] const String& shownText(int row) const { return label(row).text(); }

private:
    void clicked() override;
    void showList(int index);
    void moveBy(int distance);
    void typeKey(std::uint32_t key);
    void importCurrent();

    [[nodiscard]] Text& label(int row) const { return *labels_[static_cast<std::size_t>(row)]; }

    KeyService keyService_;
    Image okButton_;
    Image cancelButton_;
    Image upButton_;
    Image downButton_;
    std::array<std::unique_ptr<Text>, rows> labels_;
    ImportList list_;
    int current_ = -1; ///< −1 for an empty list.
    String typed_;
};

ImportPopup& importPopup();

void openImport();

} // namespace kez
