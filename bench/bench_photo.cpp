// SPDX-License-Identifier: GPL-3.0-or-later
// How fast a photo of 12 megapixels opens, against the bare QPixmap.
#include "documents/page.h"
#include "documents/pageview.h"
#include "measure.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <memory>

namespace {

/// As large and as hard to decode as a photo: soft gradients under a grain.
QString writtenPhoto(const QTemporaryDir &folder)
{
    QImage photo(4000, 3000, QImage::Format_RGB32);
    QRandomGenerator random(12);
    for (int y = 0; y < photo.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(photo.scanLine(y));
        for (int x = 0; x < photo.width(); ++x) {
            const int grain = static_cast<int>(random.bounded(24));
            line[x] = qRgb(x / 18 + grain, y / 14 + grain, (x + y) / 32 + grain);
        }
    }
    const QString fileName = folder.filePath(QStringLiteral("photo.jpg"));
    if (!photo.save(fileName, "JPG", 90))
        qFatal("cannot write the sample photo");
    return fileName;
}

} // namespace

int main(int argc, char **argv)
{
    prepareBenchmark();
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString fileName = writtenPhoto(folder);
    QPixmap pixmap;
    const double bare = leastCpu(5, [&] { pixmap.load(fileName); });

    std::unique_ptr<Page> page;
    std::unique_ptr<PageView> view;
    const double ours = leastCpu(
        5,
        [&] {
            page = std::make_unique<Page>(nullptr);
            view = std::make_unique<PageView>(page.get(), nullptr);
            page->setPageView(view.get());
            view->resize(1000, 800);
            if (!page->loadFile(fileName))
                qFatal("cannot load the sample photo");
            view->show();
            QCoreApplication::processEvents();
        },
        [&] {
            view.reset();
            page.reset();
        });
    printTitle(QStringLiteral("Opening a photo of 4000 x 3000 to the first painting; reference: QPixmap::load"));
    printRow(QStringLiteral("JPEG"), ours, bare, QStringLiteral("ms"));
    return 0;
}
