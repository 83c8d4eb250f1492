// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QString>

/// What goes by a document's name: its path, or unnamed for one that was never saved.
namespace DocumentName {

inline constexpr QLatin1String unnamed("noname");

/// Whether the suffix says that the file holds a document with its marks: "oxn", in any case.
bool isAnnotatedFile(const QString &path);

/// The patterns of all pictures that can be written, for the filters of file dialogs: "*.bmp *.png".
QString picturePatterns();

/// Title of the window that has the document in front: @p bareTitle, the name in brackets, and a star if it is
/// modified. To be given to QWidget::setWindowTitle(), which shows all of it as it stands here.
QString windowTitle(const QString &bareTitle, const QString &name, bool modified);

/// The file-name part of @p path for a tab or a menu entry, which would take some of its characters for their own: an
/// ampersand for the mark of a shortcut, a tab for the beginning of one, a line break for the end of the line.
QString label(const QString &path);

} // namespace DocumentName
