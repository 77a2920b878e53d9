// SPDX-License-Identifier: MIT
#include "media/jpeg_error.h"

namespace kez {

namespace {

JpegErrors& errorsOf(j_common_ptr info)
{
    return *static_cast<JpegErrors*>(info->client_data);
}

void keepMessage(j_common_ptr info)
{
    info->err->format_message(info, errorsOf(info).text);
}

[[noreturn]] void leaveLibrary(j_common_ptr info)
{
    info->err->output_message(info);
    std::longjmp(errorsOf(info).escape, 1);
}

// Doubts about a file that can be read all the same are not worth a diagnostic.
void ignoreWarning(j_common_ptr, int) { }

} // namespace

void JpegErrors::attachTo(j_common_ptr info)
{
    info->err = jpeg_std_error(&manager);
    manager.error_exit = leaveLibrary;
    manager.output_message = keepMessage;
    manager.emit_message = ignoreWarning;
    info->client_data = this;
}

void JpegErrors::giveUp(const char* problem)
{
    std::snprintf(text, sizeof text, "%s", problem);
    std::longjmp(escape, 1);
}

} // namespace kez
