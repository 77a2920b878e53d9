// SPDX-License-Identifier: MIT
#include "kez_app.h"

int main(int argc, char** argv)
{
    return kez::tools::runKez(argc, argv);
}
