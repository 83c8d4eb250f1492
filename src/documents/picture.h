// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPixmap;
class QString;

/// The picture in the file @p path, one image pixel as one scene unit whatever the file's name says about screens.
/// Only regular files are opened. Up to 1 GiB of pixels is read: a photo of 100 million pixels, also one with 16 bits
/// per colour. Null when the file cannot be read or is no picture that Qt knows.
QPixmap readPicture(const QString &path);

/// Lets Qt read pictures of up to 1 GiB of pixels from now on.
void allowLargePictures();
