// SPDX-License-Identifier: MIT
/// The photo book: the stored pictures, a page of 24 at a time, with their names. The child turns
/// pages, chooses a picture, sees it enlarged, names it by typing, throws it away or gives it to
/// the host. A typed name holds from the next button press or click on.
#pragma once

#include "activity/activity_screen.h"
#include "activity/book_page.h"
#include "activity/name_labels.h"

#include <cstdint>
#include <vector>

namespace kez {

class PhotoBook : public ActivityScreen {
public:
    PhotoBook();
    TaskBody run() override;
    void enter() override;
    void leave() override;
    [[nodiscard]] std::vector<Image*> images() override;

    [[nodiscard]] static GridLayout layout();

    [[nodiscard]] const NameLabels& labels() const { return labels_; } ///< While current.

    [[nodiscard]] int page() const { return page_.number(); } ///< 0 first.

private:
    void buttonPressed() override;
    void gridClicked() override;
    void keyTyped(std::uint32_t key) override;
    int showImported() override;
    void cellClicked();
    void clickedElsewhere();
    void turnPage(int direction);
    void showPage();
    void paintCell(int cell);
    void clearSelection();
    void commitName();
    void openSelected();
    void deleteSelected();
    void exportSelected();
    void importFile();
    void giveBack();
    [[nodiscard]] String selectedName() const;

    Image backdrop_;
    Image importButton_;
    Image exportButton_;
    Image returnButton_;
    Image trashButton_;
    Image helpButton_;
    Image saveButton_;
    Image leftButton_;
    Image rightButton_;
    Image cameraButton_;
    Image bookButton_;

    NameLabels labels_;
    BookPage page_;
    int currentCell_ = 0;
    List* selectedEntry_ = nullptr; ///< The album's; that of the current cell.
};

/// The one photo book.
PhotoBook& photoBook();

} // namespace kez
