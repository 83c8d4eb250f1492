// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "annotations/annotation.h"

#include <QSizeF>
#include <QString>

#include <memory>
#include <vector>

/// What stands in an annotated file, read but not yet shown anywhere.
struct OxnContents
{
    enum Kind { Text, Image, Mark };

    /// One child of the root that means something.
    struct Part
    {
        Kind kind;
        int index;                        ///< Counted from 0 over all nodes of the root.
        QString text;                     ///< The text, or the path of the image.
        std::unique_ptr<Annotation> mark; ///< Off every scene.
    };

    bool isOxn = false; ///< False for well-formed XML of any other kind; nothing below is set then.
    QString fileType;   ///< Extension of the file that the document came from.
    QSizeF size;
    QString fontFamily;
    int fontSize = 0;
    int nodeCount = 0;       ///< Nodes of all kinds inside the root.
    std::vector<Part> parts; ///< In the order of the file.
};
