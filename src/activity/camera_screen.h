// SPDX-License-Identifier: MIT
/// The camera screen: where the pictures taken with the camera come in. It shows them in a grid of
/// 20 cells; from here the child saves them, throws one away or gives one back to the host.
#pragma once

#include "activity/activity_screen.h"
#include "activity/save_dialog.h"
#include "media/camera.h"

#include <array>
#include <vector>

namespace kez {

class CameraScreen : public ActivityScreen {
public:
    CameraScreen();
    TaskBody run() override;
    void enter() override;
    void leave() override;
    [[nodiscard]] std::vector<Image*> images() override;

    [[nodiscard]] static GridLayout layout();

    [[nodiscard]] const std::array<Image, 9>& busyFrames() const { return busyFrames_; }

    void goOnTo(SaveDialog::Destination destination); ///< Without a question.

private:
    static int cameraHandler(Camera& camera, int notification, void* screen);
    void busyStep();
    void lookForPicture();
    void advanceBusyPointer();
    [[nodiscard]] int shownBusyFrame() const;
    void buttonPressed() override;
    void gridClicked() override;
    int showImported() override;
    void fetchPictures();
    void exportSelected();
    void deleteSelected();
    void goTo(SaveDialog::Destination destination);
    void giveBack();
    void importFile();
    void paintCell(const std::uint8_t* picture, int cell);

    Image backdrop_;
    Image importButton_;
    Image exportButton_;
    Image returnButton_;
    Image trashButton_;
    Image helpButton_;
    Image saveButton_;
    Image cameraButton_;
    Image bookButton_;
    std::array<Image, 9> busyFrames_;

    int stepCounter_ = 0; ///< 0 to 4.
    bool pictureArrived_ = false;
};

/// The one camera screen.
CameraScreen& cameraScreen();

} // namespace kez
