// SPDX-License-Identifier: MIT
/// The link to the camera on the serial line. It finds the camera, watches its picture counter and
/// fetches every new picture. Driver calls block, so each command runs on a worker thread of its
/// own, at most one at a time; the host's thread only looks at flags. It drives the link by calling
/// `tick` at a regular pace and hears of events through a callback.
///
/// The camera has six picture places and a counter that says where its next picture goes. The link
/// fetches place 0 up to the counter and then sets the counter back to 0.
///
/// Flags are atomic. Whatever a command has written (the picture, the versions) may be read by the
/// host's thread once the command has ended, until the next one is issued.
#pragma once

#include "media/camera_driver.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace kez {

class Camera {
public:
    enum Command {
        NoCommand = 0,
        Connect = 2,
        UploadLatest = 4,
        Poll = 5,
        Buzz = 6,
        SetCounter = 7, ///< To the first argument.
        Grab = 8, ///< A picture taken from here, with both arguments; into place 0.
        GrabRepeat = 9, ///< The same, into the next place, again after each picture.
        GrabNext = 10, ///< As `Grab`, again after each picture.
        DownloadStep = 11,
    };

    enum Notification {
        Nothing = 0,
        Ready = 1, ///< The camera answers.
        Lost = 2, ///< It does not.
        CountChanged = 4, ///< Also called before `Ready` and `Lost`.
        PictureUploaded = 5, ///< `image` has a new picture.
        BadExposure = 6,
    };

    /// Called on the host's thread from `tick`; for `Ready` and `Lost` after a connection attempt
    /// (and the `CountChanged` before them) on the worker's. The result is ignored.
    using Callback = int (*)(Camera& camera, int notification, void* context);

    static constexpr int pictureWidth = 160;
    static constexpr int pictureHeight = 120;
    static constexpr std::size_t pictureBytes = 57600; ///< Three bytes a pixel.
    static constexpr std::size_t rawBytes = 20336; ///< A picture's lines before colourizing.
    static constexpr unsigned places = 6; ///< A count of six: the camera is full.

    Camera(); ///< Exactly one; a second one ends the process with exit code 19.
    Camera(const Camera&) = delete;
    Camera& operator=(const Camera&) = delete;
    ~Camera() = delete; ///< A worker may outlive everything else.

    void start(Callback callback, void* context);
    void stop(); ///< Waits for a running driver call of an upload, for nothing else.
    void tick();

    /// Starts a command on a worker; waits for a running `Poll` first. False: refused, because a
    /// grab is pending, another command runs or the thread cannot be created.
    bool issue(int command, std::uint32_t first = 0, std::uint32_t second = 0);

    [[nodiscard]] bool isReady() const { return ready_; }

    [[nodiscard]] bool isUploading() const { return uploading_; }

    [[nodiscard]] bool isDownloading() const { return downloadMode_ != noDownload; }

    [[nodiscard]] bool isIdle() const { return currentCommand_ == NoCommand; }

    [[nodiscard]] unsigned pictureCount() const { return pictureCount_; }

    [[nodiscard]] std::uint32_t lastResult() const { return lastResult_; }

    [[nodiscard]] const std::uint8_t* image() const { return picture_.data(); }

    [[nodiscard]] const char* firmwareVersion() const { return firmwareVersion_.data(); }

    [[nodiscard]] const char* driverVersion() const { return driverVersion_.data(); }

    bool requestDownloadAll(); ///< All six places; refused (false) while a download runs.

    void requestErase() { eraseRequest_ = true; } ///< Counter to 0 at the next poll.

    /// The driver's enlarged copy of a picture (null: of `image`). Returns the destination, or
    /// null.
    std::uint8_t* enlarge(std::uint8_t* destination, std::uint8_t* source);

    /// Finds the ports that a camera may be on. The systems we run on give no direct access to the
    /// ports, so all four stay allowed.
    void probePorts();
    void allowPort(int port, bool allowed); ///< Port 0 is COM1. All are allowed at first.

    /// Shows the last result in a message box.
    void reportError(const char* message) const;

    /// Forgets the connection and everything under way; no command may run. The callback, its
    /// context and the allowed ports stay.
    void reinitialise();

    /// Another driver than the library; for programs that bring their own. No command may run.
    void setDriver(const CameraDriver& driver);

    /// At the end: stops, waits a moment for the worker, closes the camera and lets the driver's
    /// library go. A worker that has not ended by then goes on with both.
    void shutDown();

private:
    using Flag = std::atomic<bool>;

    enum DownloadMode { noDownload = 0, downloadCounted = -1, downloadAllPlaces = -2 };

    // The host's thread.
    void step();
    void beginConnection();
    bool startWorker();
    bool awaitWorker();
    void askForGrab();
    void takeCompleted();
    void loadDriver();
    void giveUp();

    // The worker's commands.
    static DWORD WINAPI work(void* camera);
    void execute();
    void runCommand(int command);
    void connect();
    bool tryPort(const char* name);
    bool checkConnection();
    bool readIdentity(unsigned char& index);
    void poll();
    void pollReady();
    void watchCounter();
    void downloadStep();
    void beginDownload();
    void downloadNext(unsigned total);
    void finishDownload();
    bool setImageCounter(int target);
    void startGrab();
    bool upload();
    std::uint32_t uploadPicture();
    std::uint32_t uploadLines(std::uint8_t* raw);
    std::uint32_t uploadRaw(std::uint8_t* raw, int lineCount, int lineBytes);
    bool sync();
    void pause();

    // Both.
    bool record(std::uint32_t result); ///< As the last result; true for success.
    void resetTransfer();
    void notify(int notification);
    void dispatch();

    [[nodiscard]] bool yields() const { return stopping_ || waiting_; }

    std::atomic<std::uint32_t> lastResult_ { 0 };
    std::atomic<unsigned> pictureCount_ { 0 };
    Flag connected_ { false };
    Flag waiting_ { false }; ///< `issue` waits for a running poll.
    Flag firstAttempt_ { true };
    Flag abortUpload_ { false };
    Flag found_ { false };
    Flag ready_ { false };
    Flag repeatGrab_ { false };
    Flag nextGrab_ { false };
    Flag grabPending_ { false };
    std::atomic<int> downloadMode_ { noDownload }; ///< Or, above 0, the number to fetch.
    Flag reconnect_ { false };
    Flag eraseRequest_ { false };
    Flag uploading_ { false };
    std::atomic<std::uint32_t> grabArgument_ { 0 };
    std::array<std::uint8_t, pictureBytes> picture_ {};
    std::uint32_t argument1_ = 0;
    std::uint32_t argument2_ = 0;
    Flag stopping_ { false };
    Flag inUploadCall_ { false };
    std::atomic<void*> context_ { nullptr };
    std::array<char, 17> firmwareVersion_ {}; ///< Sixteen bytes and a zero.
    std::array<char, 17> driverVersion_ {};
    std::atomic<int> currentCommand_ { NoCommand };
    std::atomic<int> completedCommand_ { NoCommand };
    std::array<Flag, 4> portAllowed_ { true, true, true, true };
    std::atomic<Callback> callback_ { nullptr };
    std::atomic<int> pendingNotification_ { Nothing };

    std::atomic_flag ticking_ {};
    std::atomic_flag taking_ {};

    CameraDriver driver_;
    HANDLE worker_ = nullptr;
};

/// The one camera. It exists from the first call to the end of the process.
Camera& camera();

} // namespace kez
