// SPDX-License-Identifier: GPL-3.0-or-later
// Annotated files.
#include "annotations/activeelement.h"
#include "app/eventlog.h"
#include "documents/linenumbers.h"
#include "documents/page.h"
#include "documents/warningbox.h"
#include "persistence/iosystem.h"
#include "persistence/lineends.h"
#include "persistence/oxnreader.h"
#include "persistence/oxnwriter.h"
#include "persistence/progressdisplay.h"
#include "persistence/safefile.h"

#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QGraphicsItem>

namespace {

/// The page takes the mark. A tag comes as if the user had added it, undoably; all others have always been there.
void addMark(Page *page, Annotation *mark)
{
    if (auto *tag = dynamic_cast<ActiveElement *>(mark))
        page->addActiveElement(tag);
    else
        page->putOnScene(dynamic_cast<QGraphicsItem *>(mark));
}

} // namespace

bool IoSystem::loadOxn(Page *page, const QString &fileName)
{
    (logTrace << "Load OXN file").eol(0);
    const ProgressDisplay progress(page);
    QFile file(fileName);
    if (openSafely(file) != QFileDevice::NoError) {
        showWarning(nullptr, tr("Kestrin 7 I/O Error"), tr("Cannot open file %1!").arg(fileName));
        (logTrace << " cannot open").eol(0);
        return false;
    }
    OxnReader reader;
    const bool wellFormed = reader.walk(file);
    file.close();
    if (!wellFormed) {
        showWarning(nullptr, tr("Kestrin 7 Parse Error"), tr("Wrong format of OXN file %1!").arg(fileName));
        (logTrace << " wrong format").eol(0);
        (logTrace << reader.errorString().toUtf8().constData()).eol(0);
        return false;
    }
    OxnContents contents = reader.takeContents();
    // It becomes part of a file name when the text is highlighted.
    page->setFileType(QFileInfo(contents.fileType).fileName());
    if (!contents.isOxn)
        return loadText(page, fileName);
    if (!show(contents, page, fileName, progress))
        return false;
    progress.show(100);
    (logTrace << " <=>").eol(0);
    return true;
}

bool IoSystem::show(OxnContents &contents, Page *page, const QString &fileName, const ProgressDisplay &progress)
{
    page->setSavedSize(QRectF(QPointF(0, 0), contents.size));
    page->setDocumentFont(QFont(contents.fontFamily, contents.fontSize));
    (logTrace << " total # of elements: " << contents.nodeCount).eol(0);
    // Nodes that mean nothing are progress too.
    auto pass = [&, node = 0](int end) mutable {
        for (; node < end; ++node)
            progress.show(int(float(node) / float(contents.nodeCount) * 100.0));
    };
    for (OxnContents::Part &part : contents.parts) {
        pass(part.index + 1);
        switch (part.kind) {
        case OxnContents::Text: {
            // Nothing ends the last line, so that a line feed at the text's end starts one more.
            const SplitText split = splitLines(part.text + QChar::ParagraphSeparator);
            page->setTextContents(fileName, split.text, LineNumbers::numbers(1, split.lines));
            break;
        }
        case OxnContents::Image:
            if (part.text == QLatin1String("[NULL]")) {
                showWarning(nullptr, tr("Kestrin 7 I/O Error"),
                            tr("Link to image file [%1] doesn't exist!").arg(part.text));
                (logTrace << " no link to img").eol(0);
                return false;
            }
            // A missing picture is told there, and its marks are shown all the same.
            page->setImageContents(fileName, part.text);
            break;
        case OxnContents::Mark:
            addMark(page, part.mark.release());
            break;
        }
    }
    pass(contents.nodeCount);
    return true;
}

bool IoSystem::saveOxn(Page *page, const QString &fileName)
{
    (logTrace << "Save OXN file").eol(0);
    OxnWriter writer(*page);
    const auto error = writeSafely(
        fileName, [&writer](QIODevice &device) { return writer.write(device); },
        [&writer](QIODevice &device) { return writer.check(device); });
    if (error != QFileDevice::NoError) {
        showWarning(nullptr, tr("I/O Error 0x00608005"), tr("Can't save file %1.\nError code: ").arg(fileName));
        (logTrace << " cannot save an OXN file, code: " << error).eol(0);
        return false;
    }
    (logTrace << " <=>").eol(0);
    return true;
}
