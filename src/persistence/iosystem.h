// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class Page;
class ProgressDisplay;
struct OxnContents;

/// Reads and writes documents. The suffix of the file name alone decides on the format.
///
/// All operations return whether they succeeded. A failure was told to the user in a box without a parent, unless said
/// otherwise, and has left the file on disk as it was.
class IoSystem : public QObject
{
    Q_OBJECT

public:
    /// The one instance, made on first use, destroyed at program exit.
    static IoSystem *instance();

    /// "oxn" in any case is an annotated file; a format that Qt can read is a picture; anything else is text.
    /// A null @p page gives false.
    bool load(Page *page, const QString &fileName);
    /// The same choice, by the formats that Qt can write.
    bool save(Page *page, const QString &fileName);

    bool loadText(Page *page, const QString &fileName);
    /// Writes the text without any marks, in the encoding and with the line ends that the file had.
    bool saveText(Page *page, const QString &fileName);
    bool loadImage(Page *page, const QString &fileName);
    /// Writes a picture of the scene, marks included. Shows no box: the caller tells the user.
    bool saveImage(Page *page, const QString &fileName);
    /// Shows nothing of a file that is not well-formed. Well-formed XML of another kind is shown as text.
    bool loadOxn(Page *page, const QString &fileName);
    /// Writes text, or link of the picture, and all marks.
    bool saveOxn(Page *page, const QString &fileName);

private:
    IoSystem() = default;
    bool show(OxnContents &contents, Page *page, const QString &fileName, const ProgressDisplay &progress);
};
