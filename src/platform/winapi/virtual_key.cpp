// SPDX-License-Identifier: MIT
/// SDL's keys as virtual keys: letters by what they type, so that they follow the keyboard's
/// layout; all others by where they are.
#include "display_input.h"

#include <SDL.h>

namespace kez::winapi {

namespace {

struct KeyPair {
    SDL_Scancode scancode;
    int key;
};

constexpr KeyPair keys[] = {
    { SDL_SCANCODE_BACKSPACE, VK_BACK },
    { SDL_SCANCODE_TAB, VK_TAB },
    { SDL_SCANCODE_RETURN, VK_RETURN },
    { SDL_SCANCODE_KP_ENTER, VK_RETURN },
    { SDL_SCANCODE_LSHIFT, VK_SHIFT },
    { SDL_SCANCODE_RSHIFT, VK_SHIFT },
    { SDL_SCANCODE_LCTRL, VK_CONTROL },
    { SDL_SCANCODE_RCTRL, VK_CONTROL },
    { SDL_SCANCODE_LALT, VK_MENU },
    { SDL_SCANCODE_RALT, VK_MENU },
    { SDL_SCANCODE_PAUSE, VK_PAUSE },
    { SDL_SCANCODE_CAPSLOCK, VK_CAPITAL },
    { SDL_SCANCODE_ESCAPE, VK_ESCAPE },
    { SDL_SCANCODE_SPACE, VK_SPACE },
    { SDL_SCANCODE_PAGEUP, VK_PRIOR },
    { SDL_SCANCODE_PAGEDOWN, VK_NEXT },
    { SDL_SCANCODE_END, VK_END },
    { SDL_SCANCODE_HOME, VK_HOME },
    { SDL_SCANCODE_LEFT, VK_LEFT },
    { SDL_SCANCODE_UP, VK_UP },
    { SDL_SCANCODE_RIGHT, VK_RIGHT },
    { SDL_SCANCODE_DOWN, VK_DOWN },
    { SDL_SCANCODE_PRINTSCREEN, VK_SNAPSHOT },
    { SDL_SCANCODE_INSERT, VK_INSERT },
    { SDL_SCANCODE_DELETE, VK_DELETE },
    { SDL_SCANCODE_0, '0' },
    { SDL_SCANCODE_KP_0, VK_NUMPAD0 },
    { SDL_SCANCODE_KP_MULTIPLY, VK_MULTIPLY },
    { SDL_SCANCODE_KP_PLUS, VK_ADD },
    { SDL_SCANCODE_KP_MINUS, VK_SUBTRACT },
    { SDL_SCANCODE_KP_PERIOD, VK_DECIMAL },
    { SDL_SCANCODE_KP_DIVIDE, VK_DIVIDE },
    { SDL_SCANCODE_SEMICOLON, VK_OEM_1 },
    { SDL_SCANCODE_EQUALS, VK_OEM_PLUS },
    { SDL_SCANCODE_COMMA, VK_OEM_COMMA },
    { SDL_SCANCODE_MINUS, VK_OEM_MINUS },
    { SDL_SCANCODE_PERIOD, VK_OEM_PERIOD },
    { SDL_SCANCODE_SLASH, VK_OEM_2 },
    { SDL_SCANCODE_GRAVE, VK_OEM_3 },
    { SDL_SCANCODE_LEFTBRACKET, VK_OEM_4 },
    { SDL_SCANCODE_BACKSLASH, VK_OEM_5 },
    { SDL_SCANCODE_RIGHTBRACKET, VK_OEM_6 },
    { SDL_SCANCODE_APOSTROPHE, VK_OEM_7 },
};

/// Runs of keys that follow one another in both numberings.
struct KeyRun {
    SDL_Scancode first;
    SDL_Scancode last;
    int key;
};

constexpr KeyRun runs[] = {
    { SDL_SCANCODE_1, SDL_SCANCODE_9, '1' },
    { SDL_SCANCODE_KP_1, SDL_SCANCODE_KP_9, VK_NUMPAD0 + 1 },
    { SDL_SCANCODE_F1, SDL_SCANCODE_F12, VK_F1 },
};

} // namespace

int virtualKey(int scancode, int keycode)
{
    if (keycode >= 'a' && keycode <= 'z')
        return keycode - 'a' + 'A';
    for (const KeyRun& run : runs) {
        if (scancode >= run.first && scancode <= run.last)
            return run.key + scancode - run.first;
    }
    for (const KeyPair& pair : keys) {
        if (pair.scancode == scancode)
            return pair.key;
    }
    return 0;
}

} // namespace kez::winapi
