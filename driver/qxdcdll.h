// SPDX-License-Identifier: MIT
/* The camera driver: a library that stands for a small camera on a serial line. It takes pictures
 * by itself, keeps up to six of them and hands them over as lines of raw data. Which pictures it
 * takes, the host program chooses with the qxdc functions at the end; docs/camera.md describes both
 * halves and the raw form.
 *
 * Every function may be called from any thread. The Mvi functions return 0 or one of the results
 * below; those that talk to the camera take the time that a serial line takes. */
#ifndef QXDCDLL_H
#define QXDCDLL_H

#include <stdint.h>

#if defined(_WIN32) && defined(QXDC_BUILD)
#define QXDC_API __declspec(dllexport)
#elif defined(_WIN32)
#define QXDC_API __declspec(dllimport)
#else
#define QXDC_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

#define MVI_OK 0u
#define MVI_CAMERA_NOT_PRESENT 0xFFFF0000u
#define MVI_CAMERA_FULL 0xFFFF0001u
#define MVI_CAMERA_BAD_EXPOSURE 0xFFFF0002u
#define MVI_CAMERA_BUSY 0xFFFF0004u
#define MVI_NULL_POINTER 0xFFFF0010u
#define MVI_BUFFER_TOO_SMALL 0xFFFF0011u
#define MVI_BAD_PARM 0xFFFF0012u
#define MVI_COMMS_NOT_OPEN 0xFFFF0021u
#define MVI_COMMS_TIMEOUT 0xFFFF0022u
#define MVI_COMMS_NAK 0xFFFF0023u
#define MVI_COMMS_BAD_PACKET 0xFFFF0024u
#define MVI_COMMS_SEND_TIMEOUT 0xFFFF0025u
#define MVI_COMMS_SEND_NAK 0xFFFF0026u
#define MVI_IMAGE_NULL 0xFFFF0030u
#define MVI_IMAGE_CREATE_FAIL 0xFFFF0031u
#define MVI_IMAGE_COLOUR_FAIL 0xFFFF0032u
#define MVI_IMAGE_ENLARGE_FAIL 0xFFFF0033u
#define MVI_IMAGE_BGRMV_FAIL 0xFFFF0034u
#define MVI_ERROR 0xFFFFFFFFu

#define MVI_PICTURE_PLACES 6
#define MVI_VERSION_BYTES 16
#define MVI_RAW_BYTES 20336 /* 124 lines of 164 bytes */
#define MVI_PICTURE_WIDTH 160
#define MVI_PICTURE_HEIGHT 120
#define MVI_PICTURE_BYTES 57600 /* blue, green, red; bottom row first */
#define MVI_ENLARGED_BYTES 230400 /* 320 x 240, the same layout */

/* What an upload was about: 24 bytes. */
typedef struct MVIGRABINFO {
    uint32_t place; /* 0 to 5 */
    uint32_t exposed; /* 1, or 0 when no picture was ever put into the place */
    uint32_t lineCount;
    uint32_t lineBytes;
    uint32_t width; /* of the picture */
    uint32_t height;
} MVIGRABINFO;

/* Opens the camera on a port, "COM1" to "COM4"; MVI_CAMERA_NOT_PRESENT where it is not. */
QXDC_API uint32_t MviOpenCamera(const char* port);
/* Succeeds also when nothing is open. Pictures that were not fetched stay in the camera. */
QXDC_API uint32_t MviCloseCamera(void);

/* Each fills MVI_VERSION_BYTES bytes with a text that ends in a zero. */
QXDC_API uint32_t MviGetDLLVersion(char* version);
QXDC_API uint32_t MviGetFirmwareVersion(char* version);

/* The place, 0 to 6, where the next picture goes; 6: the camera is full. */
QXDC_API uint32_t MviGetImageIndex(unsigned char* index);
QXDC_API uint32_t MviResetImageCounter(int index);

/* MVI_CAMERA_BUSY while the camera writes a picture: wait a little and ask again. */
QXDC_API uint32_t MviSyncCamera(void);

/* An upload: Begin, every line, Info. It is of the picture at the counter's place; one that was
 * never used gives a sample picture. A line's buffer holds at least lineBytes bytes. */
QXDC_API uint32_t MviBeginUploadImage(int* lineCount, int* lineBytes);
QXDC_API uint32_t MviUploadImageLine(unsigned char* line, int lineBytes);
QXDC_API uint32_t MviUploadImageInfo(MVIGRABINFO* info);

/* From MVI_RAW_BYTES of raw lines to MVI_PICTURE_BYTES (MVI_IMAGE_COLOUR_FAIL when the lines are
 * not what the camera sent); from those to MVI_ENLARGED_BYTES. */
QXDC_API uint32_t MviColourizeImage(unsigned char* raw, unsigned char* picture);
QXDC_API uint32_t MviEnlargeImage(unsigned char* picture, unsigned char* destination);

/* Takes a picture; both arguments are for cameras with an exposure to set. The result is
 * MVI_CAMERA_BUSY until the picture is in its place. */
QXDC_API uint32_t MviGrabImage(int exposure, int gain);
QXDC_API uint32_t MviGrabResult(void);
QXDC_API uint32_t MviSoundBuzzer(int duration, int pitch);

/* The rest is for the host program. Each returns 1, or 0 and leaves a text in qxdcLastProblem. */

/* Where the pictures come from. The camera starts afresh with it; when it cannot be used, the one
 * before stays.
 *
 * - "demo": demo1 to demo6 (.jpg, .jpeg, .png) of the demo directory: three at the start, then one
 *   every ten seconds until six have been taken.
 * - "folder:DIR": every JPEG and PNG file of a folder, by name, and those that come into it later.
 * - "none": there is no camera on any port. */
QXDC_API int qxdcSetSource(const char* source);

/* For the next qxdcSetSource("demo"). Without it: data/demo in the current directory. */
QXDC_API int qxdcSetDemoDirectory(const char* directory);

/* Somebody presses the camera's button: one picture more, at the next occasion. 0: it is full. */
QXDC_API int qxdcTakePicture(void);

/* Pulls the cable and puts it back. The pictures in the camera stay. */
QXDC_API int qxdcUnplug(void);
QXDC_API int qxdcPlug(void);

/* How fast the line is, in thousandths of the real time: 1000 at first, 0 for no waiting at all. */
QXDC_API int qxdcSetPace(int perMille);

/* Misbehaviour for tests, for the next `count` occasions (negative: for ever; 0: never):
 *
 * - "busy", "refusing", "silent": what any call to the camera answers;
 * - "too-many-lines", "negative-lines", "long-lines": what MviBeginUploadImage claims;
 * - "bad-exposure": what comes of MviGrabImage;
 * - "unplugged": `count` more calls work, then the cable is pulled. */
QXDC_API int qxdcSetFault(const char* fault, int count);

/* Why the last qxdc function of this thread answered 0, in a sentence; valid until its next one. */
QXDC_API const char* qxdcLastProblem(void);

#ifdef __cplusplus
}
#endif

#endif
