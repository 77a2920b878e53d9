// SPDX-License-Identifier: MIT
/// The camera on its serial line: answers commands at the line's pace, takes pictures from its
/// source as it is asked whether it is busy, and misbehaves when told to.
///
/// Results are those of qxdcdll.h. Safe on any thread. No lock is held while time passes or while a
/// photograph is read, so that the host thread is never held up by the line.
#pragma once

#include "camera_memory.h"
#include "faults.h"
#include "picture_source.h"

#include <mutex>

namespace kez::driver {

class SerialCamera {
public:
    using Result = std::uint32_t;

    Result open(const char* port);
    Result close();
    Result firmwareVersion(char* version);
    Result imageIndex(unsigned char* index);
    Result resetCounter(int place);
    Result sync();
    Result beginUpload(int* lineCount, int* lineBytes);
    Result uploadLine(unsigned char* line, int lineBytes);
    Result uploadInfo(MVIGRABINFO* info);
    Result grab();
    Result grabResult();
    Result buzz();

    /// From now on the pictures come from here; null: there is no camera. It starts afresh.
    void useSource(std::shared_ptr<PictureSource> source);
    [[nodiscard]] bool hasSource() const;

    [[nodiscard]] bool pressButton(); ///< False when it is full.
    void setPlugged(bool plugged);
    void setPace(unsigned perMille);
    [[nodiscard]] bool setFault(std::string_view name, int count);

private:
    using Shutter = PictureSource::Shutter;

    enum class Goes { InTurn, ToTheCounter };

    struct Upload {
        bool runs = false;
        int place = 0;
        int nextLine = 0;
        RawPointer raw {};
    };

    [[nodiscard]] Result decide();
    [[nodiscard]] Result converse(unsigned milliseconds);
    [[nodiscard]] bool takePicture(Shutter shutter, Goes where);
    [[nodiscard]] bool isWriting();

    [[nodiscard]] bool isConnected() const { return plugged_ && source_ != nullptr; }

    void passTime(unsigned milliseconds) const;
    void lie(int& lineCount, int& lineBytes);

    mutable std::mutex lock_; // guards everything below but the source's own state
    std::mutex sourceLock_; // held while the source works; only ever tried for
    std::shared_ptr<PictureSource> source_;
    CameraMemory memory_;
    Upload upload_;
    Faults faults_;
    bool open_ = false;
    bool plugged_ = true;
    bool started_ = false; // the pictures present at the start are in
    int presses_ = 0; // of the button, not yet carried out
    std::uint32_t writtenAt_ = 0; // when the picture that is being written will be in its place
    bool writing_ = false;
    unsigned pace_ = 1000;
    Result grabbed_ = MVI_ERROR; // there is no result before the first grab
};

} // namespace kez::driver
