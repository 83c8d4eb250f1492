// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/windowprobe.h"
#include "support/testmain.h"
#include "widgets/qtcolorpicker.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

/// A screen reader finds a name for every control on the tool bars.
class TestAccessibleNames : public QObject
{
    Q_OBJECT

private slots:
    void everyControlHasAName();
    void pickersAreToldApart();
};

void TestAccessibleNames::everyControlHasAName()
{
    const WindowProbe window;
    int controls = 0;
    for (const QToolBar *bar : window->findChildren<QToolBar *>()) {
        for (const QWidget *control : bar->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            const auto *button = qobject_cast<const QAbstractButton *>(control);
            if (control->objectName().startsWith(QLatin1String("qt_")) ||
                (!button && !qobject_cast<const QComboBox *>(control)))
                continue;
            ++controls;
            const auto *toolButton = qobject_cast<const QToolButton *>(control);
            const bool named = !control->accessibleName().isEmpty() || (button && !button->text().isEmpty()) ||
                               (toolButton && toolButton->defaultAction());
            QVERIFY2(named, qPrintable(bar->objectName() + QStringLiteral(": ") + control->metaObject()->className() +
                                       QLatin1Char(' ') + control->toolTip()));
        }
    }
    QVERIFY2(controls > 40, qPrintable(QString::number(controls)));
}

void TestAccessibleNames::pickersAreToldApart()
{
    const WindowProbe window;
    QStringList names;
    for (const QToolBar *bar : window->findChildren<QToolBar *>()) {
        for (const QtColorPicker *picker : bar->findChildren<QtColorPicker *>())
            names.append(picker->accessibleName());
    }
    names.sort();
    QCOMPARE(names, (QStringList{QStringLiteral("Fill Color"), QStringLiteral("Line Color")}));
}

REGISTER_TEST(TestAccessibleNames)
#include "tst_accessiblenames.moc"
