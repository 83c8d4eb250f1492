# SPDX-License-Identifier: GPL-3.0-or-later
# The one list of Debian packages: what ./run needs to build and start, and what ./test needs besides.
# Sourced, not run.

packages_run=(
    g++ cmake ninja-build pkg-config ccache
    qt6-base-dev qt6-5compat-dev qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
    libgl-dev libvulkan-dev
    qt6-image-formats-plugins qt6-translations-l10n
    poppler-utils xdg-utils fonts-liberation fonts-dejavu-core
)

# A window without a screen: the server, the window manager, and what looks at it and closes it.
packages_headless=(xvfb openbox xdotool wmctrl scrot)

packages_test=("${packages_headless[@]}" ghostscript cups-daemon)
