// SPDX-License-Identifier: MIT
/// Data of a library that a program finds under a given symbol.
#pragma once

#define KEZ_TEXT_OF(symbol) #symbol
#define KEZ_SYMBOL_TEXT(prefix, symbol) KEZ_TEXT_OF(prefix) symbol

/// `TYPE KEZ_EXPORTED_DATA(variable, "symbol") = value;` defines a variable that is known to the
/// linker as `symbol`, the one that a C++ declaration of the same thing elsewhere has. Some systems
/// put an underscore in front of every symbol. On Windows a .def file exports it: the attribute
/// would name the symbol with an underscore too many.
#if defined(_WIN32)
#define KEZ_EXPORTED_DATA(variable, symbol)                                                        \
    variable __asm__(KEZ_SYMBOL_TEXT(__USER_LABEL_PREFIX__, symbol))
#else
#define KEZ_EXPORTED_DATA(variable, symbol)                                                        \
    variable __asm__(KEZ_SYMBOL_TEXT(__USER_LABEL_PREFIX__, symbol))                               \
        __attribute__((visibility("default")))
#endif
