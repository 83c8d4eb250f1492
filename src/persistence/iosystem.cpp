// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/iosystem.h"

#include "app/eventlog.h"
#include "documents/documentname.h"
#include "documents/linenumbers.h"
#include "documents/page.h"
#include "documents/warningbox.h"
#include "persistence/lineends.h"
#include "persistence/progressdisplay.h"
#include "persistence/safefile.h"
#include "persistence/scenepicture.h"
#include "persistence/textcodec.h"

#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>

namespace {

bool isAmong(const QList<QByteArray> &formats, const QString &fileName)
{
    return formats.contains(QFileInfo(fileName).suffix().toLower().toLatin1());
}

/// Whether @p fileName is the picture that the page shows. In a format that can only be read it would become a text
/// file by its suffix, an empty one.
bool isOwnPicture(const Page *page, const QString &fileName)
{
    const QFileInfo target(fileName);
    return page->documentKind() == Page::ImageDocument && target.exists() && target == QFileInfo(page->imageLink());
}

} // namespace

IoSystem *IoSystem::instance()
{
    static IoSystem theInstance;
    return &theInstance;
}

bool IoSystem::load(Page *page, const QString &fileName)
{
    if (!page)
        return false;
    if (DocumentName::isAnnotatedFile(fileName))
        return loadOxn(page, fileName);
    if (isAmong(QImageReader::supportedImageFormats(), fileName))
        return loadImage(page, fileName);
    return loadText(page, fileName);
}

bool IoSystem::save(Page *page, const QString &fileName)
{
    if (!page)
        return false;
    if (DocumentName::isAnnotatedFile(fileName))
        return saveOxn(page, fileName);
    if (isAmong(QImageWriter::supportedImageFormats(), fileName))
        return saveImage(page, fileName);
    if (isOwnPicture(page, fileName)) {
        (logTrace << "Picture format cannot be written").eol(0);
        return false;
    }
    return saveText(page, fileName);
}

bool IoSystem::loadText(Page *page, const QString &fileName)
{
    (logTrace << "Load text file").eol(0);
    const ProgressDisplay progress(page);
    QByteArray bytes;
    if (const auto error = readWhole(fileName, &bytes); error != QFileDevice::NoError) {
        showWarning(nullptr, tr("I/O Error 0x00608004"),
                    tr("Can't open file %1\nError code: %2").arg(fileName, QString::number(error)));
        (logTrace << " cannot open text file").eol(0);
        return false;
    }
    TextFormat format;
    const SplitText split = splitLines(decodeText(bytes, &format));
    format.lineEnd = split.lineEnd;
    progress.show(50);
    page->setTextContents(fileName, split.text, LineNumbers::numbers(1, split.lines));
    page->setTextFormat(format);
    rememberOddEnds(page->textDocument(), split);
    page->setFileType(QFileInfo(fileName).suffix());
    progress.show(100);
    (logTrace << " <=>").eol(0);
    return true;
}

bool IoSystem::saveText(Page *page, const QString &fileName)
{
    (logTrace << "Save pure text file").eol(0);
    const TextFormat format = page->textFormat();
    const QByteArray bytes = encodeText(joinLines(page->textDocument(), format), format);
    if (writeSafely(fileName, bytes) != QFileDevice::NoError) {
        showWarning(nullptr, tr("I/O Error"), tr("Cannot save file %1.\nError code: ").arg(fileName));
        (logTrace << " cannot save txt file").eol(0);
        return false;
    }
    (logTrace << " <=>").eol(0);
    return true;
}

bool IoSystem::loadImage(Page *page, const QString &fileName)
{
    (logTrace << "Load image file").eol(0);
    const ProgressDisplay progress(page);
    progress.show(50);
    const bool loaded = page->setImageContents(fileName, QString());
    progress.show(100);
    page->setFileType(QFileInfo(fileName).suffix());
    (logTrace << " <=>").eol(0);
    return loaded;
}

bool IoSystem::saveImage(Page *page, const QString &fileName)
{
    (logTrace << "Save image file").eol(0);
    if (!page || fileName.isEmpty()) {
        (logTrace << " page or file name is empty").eol(0);
        return false;
    }
    const QByteArray bytes = encodePicture(renderPicture(page), QFileInfo(fileName).suffix());
    if (bytes.isEmpty() || writeSafely(fileName, bytes) != QFileDevice::NoError) {
        (logTrace << " cannot save pixmap").eol(0);
        return false;
    }
    (logTrace << " <=>").eol(0);
    return true;
}
