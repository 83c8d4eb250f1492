// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testmain.h"
#include "widgets/fullscreendialog.h"
#include "widgets/viewhost.h"
#include "widgets/viewmodedialog.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QTest>
#include <QToolButton>
#include <QTranslator>

namespace {

/// A window that writes down what the bars ask, and hides the bar as the real one does.
class HostWindow : public QWidget, public ViewHost
{
public:
    void toggleFullScreen() override { answer("toggleFullScreen"); }
    void exitProgram() override { answer("exitProgram"); }
    void showStandardView(bool updateActions) override
    {
        answer(updateActions ? "showStandardView(true)" : "showStandardView(false)");
    }
    QWidget *hostWindow() override { return this; }

    QStringList asked;

private:
    void answer(const QString &call)
    {
        asked.append(call);
        for (QDialog *bar : findChildren<QDialog *>())
            bar->hide();
    }
};

QList<QToolButton *> buttonsOf(const QDialog &bar)
{
    QList<QToolButton *> buttons;
    for (int i = 0; i < bar.layout()->count(); ++i)
        buttons.append(qobject_cast<QToolButton *>(bar.layout()->itemAt(i)->widget()));
    return buttons;
}

class PrefixTranslator : public QTranslator
{
public:
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return QStringLiteral("x") + QString::fromUtf8(sourceText);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestFloatingBars : public QObject
{
    Q_OBJECT

private slots:
    void fullscreenButtons();
    void viewModeButtons();
    void quitAsksTheWindow();
    void actionButtonsRunTheActions();
    void fullscreenPlace();
    void viewModePlace();
    void placeOnAFullScreen();
    void escapeDoesNotHide();
    void closingGoesBack();
    void closingAfterTheWindowIsQuiet();
    void worksWithoutAHost();
    void doesNotTakeTheKeyboard();
    void languageChange();
};

void TestFloatingBars::fullscreenButtons()
{
    HostWindow window;
    window.show();
    FullscreenDialog bar(&window);
    QCOMPARE(bar.windowTitle(), "Kestrin 7");
    QVERIFY(qobject_cast<QHBoxLayout *>(bar.layout()));
    const QList<QToolButton *> buttons = buttonsOf(bar);
    QCOMPARE(buttons.size(), 2);
    QCOMPARE(buttons.at(0)->toolTip(), "Standard view");
    QCOMPARE(buttons.at(1)->toolTip(), "Quit Kestrin 7");
    for (const QToolButton *button : buttons) {
        QVERIFY(button->autoRaise());
        QVERIFY(!button->icon().isNull());
        QCOMPARE(button->accessibleName(), button->toolTip());
    }
    bar.show();
    QTest::mouseClick(buttons.at(0), Qt::LeftButton);
    QCOMPARE(window.asked, QStringList("toggleFullScreen"));
}

void TestFloatingBars::viewModeButtons()
{
    HostWindow window;
    window.show();
    QAction first("First", &window);
    QAction second("Second", &window);
    ViewModeDialog bar({&first, &second}, &window);
    QCOMPARE(bar.windowTitle(), "Kestrin 7");
    QVERIFY(qobject_cast<QHBoxLayout *>(bar.layout()));
    const QList<QToolButton *> buttons = buttonsOf(bar);
    QCOMPARE(buttons.size(), 3);
    QCOMPARE(buttons.at(0)->defaultAction(), &first);
    QCOMPARE(buttons.at(1)->defaultAction(), &second);
    QCOMPARE(buttons.at(2)->toolTip(), "Standard View");
    for (const QToolButton *button : buttons)
        QVERIFY(button->autoRaise());
    bar.show();
    QTest::mouseClick(buttons.at(2), Qt::LeftButton);
    QCOMPARE(window.asked, QStringList("showStandardView(true)"));
}

void TestFloatingBars::quitAsksTheWindow()
{
    HostWindow window;
    window.show();
    FullscreenDialog bar(&window);
    bar.show();
    QTest::mouseClick(buttonsOf(bar).at(1), Qt::LeftButton);
    QCOMPARE(window.asked, QStringList("exitProgram"));
}

void TestFloatingBars::actionButtonsRunTheActions()
{
    HostWindow window;
    QAction action("Pen", &window);
    action.setCheckable(true);
    ViewModeDialog bar({&action}, &window);
    bar.show();
    QTest::mouseClick(buttonsOf(bar).at(0), Qt::LeftButton);
    QVERIFY(action.isChecked());
    action.setEnabled(false);
    QVERIFY(!buttonsOf(bar).at(0)->isEnabled());
}

void TestFloatingBars::fullscreenPlace()
{
    HostWindow window;
    window.setGeometry(100, 120, 600, 400);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    FullscreenDialog bar(&window);
    bar.setWindowFlags(Qt::Drawer | Qt::WindowTitleHint);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCOMPARE(bar.pos(), window.pos() + QPoint(600 - bar.width() - 60, 30));

    // Only at the next show.
    const QPoint before = bar.pos();
    window.resize(500, 300);
    QCOMPARE(bar.pos(), before);
    bar.hide();
    bar.show();
    QCOMPARE(bar.pos(), window.pos() + QPoint(500 - bar.width() - 60, 30));
}

void TestFloatingBars::viewModePlace()
{
    HostWindow window;
    window.setGeometry(100, 120, 600, 400);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QAction action("Pen", &window);
    ViewModeDialog bar({&action, &action, &action}, &window);
    bar.setWindowFlags(Qt::Drawer | Qt::WindowTitleHint);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCOMPARE(bar.pos(), window.pos() + QPoint(600 - bar.width() - 60, 400 - bar.height() - 30));
}

void TestFloatingBars::placeOnAFullScreen()
{
    HostWindow window;
    window.setGeometry(100, 120, 300, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    FullscreenDialog bar(&window);
    window.showFullScreen();
    bar.show();
    const QRect screen = window.screen()->geometry();
    QCOMPARE(bar.pos(), screen.topLeft() + QPoint(screen.width() - bar.width() - 60, 30));
}

void TestFloatingBars::escapeDoesNotHide()
{
    HostWindow window;
    window.show();
    FullscreenDialog fullscreen(&window);
    ViewModeDialog viewMode({}, &window);
    for (QDialog *bar : {static_cast<QDialog *>(&fullscreen), static_cast<QDialog *>(&viewMode)}) {
        bar->show();
        QTest::keyClick(bar, Qt::Key_Escape);
        QVERIFY(bar->isVisible());
    }
    QVERIFY(window.asked.isEmpty());
}

void TestFloatingBars::closingGoesBack()
{
    HostWindow window;
    window.show();
    FullscreenDialog fullscreen(&window);
    fullscreen.show();
    fullscreen.close();
    QVERIFY(!fullscreen.isVisible());
    ViewModeDialog viewMode({}, &window);
    viewMode.show();
    viewMode.close();
    QVERIFY(!viewMode.isVisible());
    QCOMPARE(window.asked, QStringList({"toggleFullScreen", "showStandardView(true)"}));
}

void TestFloatingBars::closingAfterTheWindowIsQuiet()
{
    HostWindow window;
    window.show();
    FullscreenDialog bar(&window);
    bar.show();
    window.hide();
    bar.close();
    QVERIFY(window.asked.isEmpty());
    QVERIFY(!bar.isVisible());
}

void TestFloatingBars::worksWithoutAHost()
{
    QWidget plain;
    FullscreenDialog fullscreen(&plain);
    FullscreenDialog alone;
    ViewModeDialog viewMode({}, nullptr);
    for (QDialog *bar :
         {static_cast<QDialog *>(&fullscreen), static_cast<QDialog *>(&alone), static_cast<QDialog *>(&viewMode)}) {
        bar->show();
        for (QToolButton *button : buttonsOf(*bar))
            QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(bar->isVisible());
        bar->close();
        QVERIFY(!bar->isVisible());
    }
}

void TestFloatingBars::doesNotTakeTheKeyboard()
{
    HostWindow window;
    window.show();
    FullscreenDialog bar(&window);
    QVERIFY(bar.testAttribute(Qt::WA_ShowWithoutActivating));
}

void TestFloatingBars::languageChange()
{
    HostWindow window;
    QAction action("Pen", &window);
    FullscreenDialog fullscreen(&window);
    ViewModeDialog viewMode({&action}, &window);
    PrefixTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QTRY_COMPARE(buttonsOf(fullscreen).at(0)->toolTip(), "xStandard view");
    QCOMPARE(buttonsOf(fullscreen).at(1)->toolTip(), "xQuit Kestrin 7");
    QTRY_COMPARE(buttonsOf(viewMode).at(1)->toolTip(), "xStandard View");
    QCOMPARE(buttonsOf(viewMode).at(0)->toolTip(), "Pen");
    QCoreApplication::removeTranslator(&translator);
    QTRY_COMPARE(buttonsOf(viewMode).at(1)->toolTip(), "Standard View");
}

REGISTER_TEST(TestFloatingBars)
#include "tst_floatingbars.moc"
