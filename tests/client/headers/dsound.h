// SPDX-License-Identifier: MIT
/// See windows.h.
#pragma once
