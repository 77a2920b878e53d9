// SPDX-License-Identifier: MIT
/// Kez, a children's photo activity in a library: the one class that a host program sees.
///
/// A host owns the window, the message loop and the DirectX objects. It calls `initialize` once,
/// `initializeCamera` when the serial ports may be probed, `open` before the first run, `run` to
/// start an activity, then `process` once per pass of its loop until that returns with `exit` set;
/// then it reads the picture that the child chose. `run` may follow again; `close` and `release`
/// end it. All calls come from the thread that owns the window. Nothing reports failure here: what
/// goes wrong is told to the debugger output, and the activity goes on.
#pragma once

#include <windows.h>

#include <mmsystem.h> // before dsound.h, which needs its wave formats

#include <ddraw.h>
#include <dsound.h>

#if defined(_WIN32) && defined(KEZ_BUILDING)
#define KEZ_API // kez.def exports the members, each under two names
#elif defined(_WIN32)
#define KEZ_API __declspec(dllimport)
#else
#define KEZ_API __attribute__((visibility("default")))
#endif

class KEZ_API Kez {
public:
    /// What `run` starts. Every value but `camera` starts the photo book.
    enum Module { camera = 0, book = 1 };

    /// Takes the host's objects, which stay the host's and must outlive `release`. `primary` is
    /// what the child sees; `secondary` is a 640 × 480 surface in the display's format;
    /// `bitsPerPixel` is 16, 24 or 32. Pictures live below `dataPath` (null or empty: the current
    /// directory). `color1` frames the selected cell, `color2` is the colour of the book's labels,
    /// `color4` frames the book's cells (these three: red in the lowest byte); `color3` fills empty
    /// cells (blue in the lowest byte, as `RGBA` makes it).
    static void initialize(HWND window, IDirectSound* sound, IDirectDraw* directDraw,
        IDirectDrawSurface* primary, IDirectDrawSurface* secondary, int bitsPerPixel,
        const char* dataPath, DWORD color1, DWORD color2, DWORD color3, DWORD color4);

    static void initializeCamera(); ///< Finds the serial ports that a camera may be on.
    static void open(); ///< Hooks the window and reads "data\kez.wad" from the current directory.

    /// Starts an activity that may add `diskBudget` bytes to the disk. The song and the guide's
    /// introduction are optional.
    static void run(Module module, int diskBudget, bool playSong, bool guideIntro);

    /// One pass: paces itself, draws and presents a frame. True while an activity runs; `exit` is
    /// set by the call that ends it.
    static bool process();

    static void close(); ///< Gives the window back and empties the archive.
    static void release(); ///< Closes and shuts the module down, for good.

    /// alpha << 24 | red << 16 | green << 8 | blue; the components are not masked.
    static DWORD RGBA(int r, int g, int b, int a);

    static bool exit; ///< The last `process` ended a run.

    /// The picture handed back: `imageWidth` × `imageHeight` pixels of three bytes (blue, green,
    /// red), bottom row first, or null. Written by the module, valid until the next `run`.
    static const unsigned char* const image;
    static const char* const imageName; ///< At most 8 characters, or null.
    static int imageWidth;
    static int imageHeight;

    static int disk; ///< The host's own; the module neither reads nor writes it.
};
