// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "app/eventlog.h"
#include "mainwindow/actiontables.h"
#include "widgets/qtcolorpicker.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLocale>
#include <QToolBar>
#include <QToolButton>

namespace {

/// The text of a control that shows none: for the mouse and for screen readers.
void describe(QWidget *control, const QString &text)
{
    control->setToolTip(text);
    control->setAccessibleName(text);
}

using Form = Ui_MainWindow;

struct MenuText
{
    QMenu *Form::*menu;
    const char *title;
};

struct ActionText
{
    ActionTables::Member action;
    const char *text;
};

constexpr MenuText menuTexts[]{
    {&Form::menuFile, QT_TRANSLATE_NOOP("Scrivara", "File")},
    {&Form::recentFilesMenu, QT_TRANSLATE_NOOP("Scrivara", "Recent Files")},
    {&Form::menuEdit, QT_TRANSLATE_NOOP("Scrivara", "Edit")},
    {&Form::menuTool, QT_TRANSLATE_NOOP("Scrivara", "Tool")},
    {&Form::menuLines, QT_TRANSLATE_NOOP("Scrivara", "Line")},
    {&Form::menuShape, QT_TRANSLATE_NOOP("Scrivara", "Shape")},
    {&Form::menuBrackets, QT_TRANSLATE_NOOP("Scrivara", "Bracket")},
    {&Form::menuPredefinedPens, QT_TRANSLATE_NOOP("Scrivara", "Predefined Pens")},
    {&Form::menuPredefinedMarkers, QT_TRANSLATE_NOOP("Scrivara", "Predefined Markers")},
    {&Form::menuSettings, QT_TRANSLATE_NOOP("Scrivara", "Settings")},
    {&Form::menuToolsSettings, QT_TRANSLATE_NOOP("Scrivara", "Tools")},
    {&Form::menuChangeLanguage, QT_TRANSLATE_NOOP("Scrivara", "Change Language...")},
    {&Form::menuView, QT_TRANSLATE_NOOP("Scrivara", "View")},
    {&Form::menuShowToolBars, QT_TRANSLATE_NOOP("Scrivara", "Toolbars")},
    {&Form::menuBonus, QT_TRANSLATE_NOOP("Scrivara", "Extras")},
    {&Form::menuHelp, QT_TRANSLATE_NOOP("Scrivara", "Help")},
};

constexpr ActionText actionTexts[]{
    {&Form::actionNewProject, QT_TRANSLATE_NOOP("Scrivara", "New Text File")},
    {&Form::actionOpen, QT_TRANSLATE_NOOP("Scrivara", "Open...")},
    {&Form::actionSave, QT_TRANSLATE_NOOP("Scrivara", "Save...")},
    {&Form::actionSaveAs, QT_TRANSLATE_NOOP("Scrivara", "Save As...")},
    {&Form::actionCloseFile, QT_TRANSLATE_NOOP("Scrivara", "Close")},
    {&Form::actionExportToPdf, QT_TRANSLATE_NOOP("Scrivara", "Export to PDF...")},
    {&Form::actionPrintPreview, QT_TRANSLATE_NOOP("Scrivara", "Print Preview...")},
    {&Form::actionPrint, QT_TRANSLATE_NOOP("Scrivara", "Print...")},
    {&Form::actionSendEmail, QT_TRANSLATE_NOOP("Scrivara", "Send E-mail...")},
    {&Form::actionExit, QT_TRANSLATE_NOOP("Scrivara", "Exit")},
    {&Form::actionUndo, QT_TRANSLATE_NOOP("Scrivara", "Undo")},
    {&Form::actionRedo, QT_TRANSLATE_NOOP("Scrivara", "Redo")},
    {&Form::actionCut, QT_TRANSLATE_NOOP("Scrivara", "Cut")},
    {&Form::actionCopy, QT_TRANSLATE_NOOP("Scrivara", "Copy")},
    {&Form::actionPaste, QT_TRANSLATE_NOOP("Scrivara", "Paste")},
    {&Form::actionRemove, QT_TRANSLATE_NOOP("Scrivara", "Delete")},
    {&Form::actionSearch, QT_TRANSLATE_NOOP("Scrivara", "Find...")},
    {&Form::actionRemoveAllAnnotations, QT_TRANSLATE_NOOP("Scrivara", "Delete All Annotations...")},
    {&Form::actionToolPen, QT_TRANSLATE_NOOP("Scrivara", "Pen")},
    {&Form::actionToolMarker, QT_TRANSLATE_NOOP("Scrivara", "Marker")},
    {&Form::actionTextBox, QT_TRANSLATE_NOOP("Scrivara", "Text Box")},
    {&Form::actionSimpleLine, QT_TRANSLATE_NOOP("Scrivara", "Simple")},
    {&Form::actionEmptyCirclesLine, QT_TRANSLATE_NOOP("Scrivara", "Empty Circles")},
    {&Form::actionFilledCirclesLine, QT_TRANSLATE_NOOP("Scrivara", "Filled Circles")},
    {&Form::actionFilledEmptyCirclesLine, QT_TRANSLATE_NOOP("Scrivara", "Empty / Filled Circle")},
    {&Form::actionArrow, QT_TRANSLATE_NOOP("Scrivara", "Arrow")},
    {&Form::actionTwoArrows, QT_TRANSLATE_NOOP("Scrivara", "Double Arrow")},
    {&Form::actionEmptyCircleArrow, QT_TRANSLATE_NOOP("Scrivara", "Empty Circle / Arrow")},
    {&Form::actionFilledCircleArrow, QT_TRANSLATE_NOOP("Scrivara", "Filled Circle / Arrow")},
    {&Form::actionToolRectangle, QT_TRANSLATE_NOOP("Scrivara", "Rectangle")},
    {&Form::actionToolRoundedRectangle, QT_TRANSLATE_NOOP("Scrivara", "Rounded Rectangle")},
    {&Form::actionToolEllipse, QT_TRANSLATE_NOOP("Scrivara", "Ellipse")},
    {&Form::actionCurlyBracket, QT_TRANSLATE_NOOP("Scrivara", "Curly")},
    {&Form::actionRectBracket, QT_TRANSLATE_NOOP("Scrivara", "Square")},
    {&Form::actionToolEraser, QT_TRANSLATE_NOOP("Scrivara", "Eraser")},
    {&Form::actionThinBlackPen, QT_TRANSLATE_NOOP("Scrivara", "Black")},
    {&Form::actionThinRedPen, QT_TRANSLATE_NOOP("Scrivara", "Red")},
    {&Form::actionThinGreenPen, QT_TRANSLATE_NOOP("Scrivara", "Green")},
    {&Form::actionThinBluePen, QT_TRANSLATE_NOOP("Scrivara", "Blue")},
    {&Form::actionMediumBlackPen, QT_TRANSLATE_NOOP("Scrivara", "Black")},
    {&Form::actionMediumRedPen, QT_TRANSLATE_NOOP("Scrivara", "Red")},
    {&Form::actionMediumGreenPen, QT_TRANSLATE_NOOP("Scrivara", "Green")},
    {&Form::actionMediumBluePen, QT_TRANSLATE_NOOP("Scrivara", "Blue")},
    {&Form::actionRedMarker, QT_TRANSLATE_NOOP("Scrivara", "Red")},
    {&Form::actionGreenMarker, QT_TRANSLATE_NOOP("Scrivara", "Green")},
    {&Form::actionBlueMarker, QT_TRANSLATE_NOOP("Scrivara", "Blue")},
    {&Form::actionYellowMarker, QT_TRANSLATE_NOOP("Scrivara", "Yellow")},
    {&Form::actionToolTextMode, QT_TRANSLATE_NOOP("Scrivara", "Text Mode")},
    {&Form::actionTransformationMode, QT_TRANSLATE_NOOP("Scrivara", "Transformation Mode")},
    {&Form::actionPenSettings, QT_TRANSLATE_NOOP("Scrivara", "Pen...")},
    {&Form::actionMarkerSettings, QT_TRANSLATE_NOOP("Scrivara", "Marker...")},
    {&Form::actionTextBoxSettings, QT_TRANSLATE_NOOP("Scrivara", "Text Box...")},
    {&Form::actionLineAndBracketSettings, QT_TRANSLATE_NOOP("Scrivara", "Line...")},
    {&Form::actionShapeSettings, QT_TRANSLATE_NOOP("Scrivara", "Shape...")},
    {&Form::actionScreenshotSettings, QT_TRANSLATE_NOOP("Scrivara", "Snapshot...")},
    {&Form::actionPageViewSettings, QT_TRANSLATE_NOOP("Scrivara", "Page View...")},
    {&Form::actionSyntaxSettings, QT_TRANSLATE_NOOP("Scrivara", "Syntax Highlighting...")},
    {&Form::actionPrintSettings, QT_TRANSLATE_NOOP("Scrivara", "Printout...")},
    {&Form::actionEmailSettings, QT_TRANSLATE_NOOP("Scrivara", "E-mail...")},
    {&Form::actionMainSettings, QT_TRANSLATE_NOOP("Scrivara", "General...")},
    {&Form::actionDefaultLanguage, QT_TRANSLATE_NOOP("Scrivara", "System Default")},
    {&Form::actionEnglish, QT_TRANSLATE_NOOP("Scrivara", "English")},
    {&Form::actionPolski, QT_TRANSLATE_NOOP("Scrivara", "Polski")},
    {&Form::actionFrancais, QT_TRANSLATE_NOOP("Scrivara", "Francais")},
    {&Form::actionZoomIn, QT_TRANSLATE_NOOP("Scrivara", "Zoom In")},
    {&Form::actionZoomOut, QT_TRANSLATE_NOOP("Scrivara", "Zoom Out")},
    {&Form::actionFullScreen, QT_TRANSLATE_NOOP("Scrivara", "Full Screen Mode")},
    {&Form::actionFullView, QT_TRANSLATE_NOOP("Scrivara", "Standard")},
    {&Form::actionCompactView, QT_TRANSLATE_NOOP("Scrivara", "Compact")},
    {&Form::actionMinimalView, QT_TRANSLATE_NOOP("Scrivara", "Minimal")},
    {&Form::actionHideAnnotations, QT_TRANSLATE_NOOP("Scrivara", "Hide Annotations")},
    {&Form::actionCustomizeToolBars, QT_TRANSLATE_NOOP("Scrivara", "Customize Toolbars...")},
    {&Form::actionTakeScreenShot, QT_TRANSLATE_NOOP("Scrivara", "Snapshot Tool")},
    {&Form::actionUserGuide, QT_TRANSLATE_NOOP("Scrivara", "Online Support...")},
    {&Form::actionGotoHomePage, QT_TRANSLATE_NOOP("Scrivara", "Kestrin 7 Website...")},
    {&Form::actionAbout, QT_TRANSLATE_NOOP("Scrivara", "About...")},
    {&Form::actionShowActiveElementsList, QT_TRANSLATE_NOOP("Scrivara", "List of Active Tags")},
    {&Form::actionShowStatistics, QT_TRANSLATE_NOOP("Scrivara", "Show Statistics...")},
};

/// Where the text alone would not say enough.
constexpr ActionText actionToolTips[]{
    {&Form::actionSimpleLine, QT_TRANSLATE_NOOP("Scrivara", "Simple Line")},
    {&Form::actionCurlyBracket, QT_TRANSLATE_NOOP("Scrivara", "Curly Bracket")},
    {&Form::actionRectBracket, QT_TRANSLATE_NOOP("Scrivara", "Square Bracket")},
    {&Form::actionThinBlackPen, QT_TRANSLATE_NOOP("Scrivara", "Thin Black Pen")},
    {&Form::actionThinRedPen, QT_TRANSLATE_NOOP("Scrivara", "Thin Red Pen")},
    {&Form::actionThinGreenPen, QT_TRANSLATE_NOOP("Scrivara", "Thin Green Pen")},
    {&Form::actionThinBluePen, QT_TRANSLATE_NOOP("Scrivara", "Thin Blue Pen")},
    {&Form::actionMediumBlackPen, QT_TRANSLATE_NOOP("Scrivara", "Medium Black Pen")},
    {&Form::actionMediumRedPen, QT_TRANSLATE_NOOP("Scrivara", "Medium Red Pen")},
    {&Form::actionMediumGreenPen, QT_TRANSLATE_NOOP("Scrivara", "Medium Green Pen")},
    {&Form::actionMediumBluePen, QT_TRANSLATE_NOOP("Scrivara", "Medium Blue Pen")},
    {&Form::actionRedMarker, QT_TRANSLATE_NOOP("Scrivara", "Red Marker")},
    {&Form::actionGreenMarker, QT_TRANSLATE_NOOP("Scrivara", "Green Marker")},
    {&Form::actionBlueMarker, QT_TRANSLATE_NOOP("Scrivara", "Blue Marker")},
    {&Form::actionYellowMarker, QT_TRANSLATE_NOOP("Scrivara", "Yellow Marker")},
};

} // namespace

void Scrivara::retranslateTexts()
{
    for (const MenuText &entry : menuTexts)
        (this->*entry.menu)->setTitle(tr(entry.title));
    for (const ActionText &entry : actionTexts)
        (this->*entry.action)->setText(tr(entry.text));
    for (const ActionText &entry : actionToolTips)
        (this->*entry.action)->setToolTip(tr(entry.text));
    retranslateToolBars();
}

void Scrivara::retranslateToolBars()
{
    m_fileToolBar->setWindowTitle(tr("File"));
    m_editToolBar->setWindowTitle(tr("Edit"));
    m_viewToolBar->setWindowTitle(tr("View"));
    m_modeToolBar->setWindowTitle(tr("Mode"));
    m_normToolsToolBar->setWindowTitle(tr("Basic Tools"));
    m_shapesToolBar->setWindowTitle(tr("Shapes"));
    m_linesToolBar->setWindowTitle(tr("Lines"));
    m_bracketsToolBar->setWindowTitle(tr("Brackets"));
    m_stdToolsToolBar->setWindowTitle(tr("Pens and Markers"));
    m_helpToolBar->setWindowTitle(tr("Help"));
    m_searchToolBar->setWindowTitle(tr("Find"));
    m_searchPrevButton->setText(tr("Previous"));
    m_searchNextButton->setText(tr("Next"));
    // The buttons show icons only.
    describe(m_searchCloseButton, tr("Close"));
    describe(m_searchPrevButton, tr("Previous"));
    describe(m_searchNextButton, tr("Next"));
    m_searchBox->setAccessibleName(tr("Find"));
    m_searchCaseBox->setText(tr("Case Sensitive"));
    m_searchWordsBox->setText(tr("Whole Words"));
    describe(m_zoomBox, tr("Actual Page Size"));
    describe(m_lineColorPicker, tr("Line Color"));
    describe(m_fillColorPicker, tr("Fill Color"));
    describe(m_lockButton, tr("Unlock Document"));
    describe(m_syntaxButton, tr("Highlight Syntax"));
}

void Scrivara::loadTranslations(const QString &locale)
{
    // Null delimiters and suffix stand for the usual ones; a file that is missing leaves the texts of the source.
    const QString folder = folderPath(QStringLiteral("translations"));
    static_cast<void>(m_appTranslator.load(QStringLiteral("scrivara_") + locale, folder, QString(), QString()));
    static_cast<void>(m_qtTranslator.load(QStringLiteral("qt_") + locale, folder, QString(), QString()));
}

void Scrivara::switchLanguage(QAction *action)
{
    TRACE_ENTER;
    QString locale = action->data().toString();
    if (locale == QLatin1String("default"))
        locale = QLocale::system().name();
    m_appLanguage = locale;
    loadTranslations(locale);
    retranslateTexts();
    TRACE_LEAVE;
}

void Scrivara::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LocaleChange) {
        m_appLanguage = QLocale::system().name();
        loadTranslations(m_appLanguage);
        retranslateTexts();
    }
    QMainWindow::changeEvent(event);
}
