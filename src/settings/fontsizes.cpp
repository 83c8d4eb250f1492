// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/fontsizes.h"

#include <QComboBox>
#include <QFontDatabase>

#include <algorithm>

void showFontSize(QComboBox *box, int size)
{
    QList<int> sizes = QFontDatabase::standardSizes();
    const auto place = std::lower_bound(sizes.begin(), sizes.end(), size);
    if (place == sizes.end() || *place != size)
        sizes.insert(place, size);
    box->clear();
    for (const int entry : std::as_const(sizes))
        box->addItem(QString::number(entry));
    box->setCurrentText(QString::number(size));
}
