// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"

int main(int argc, char **argv)
{
    return runRegisteredTests(argc, argv);
}
