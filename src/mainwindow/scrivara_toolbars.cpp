// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "app/eventlog.h"
#include "mainwindow/actiontables.h"
#include "mainwindow/zoomsteps.h"
#include "widgets/qtcolorpicker.h"
#include "widgets/qttoolbardialog.h"
#include "widgets/qttoolbarmanager.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QToolBar>
#include <QToolButton>

namespace {

using Form = Ui_MainWindow;

/// Stands for a separator among the actions of a bar.
constexpr ActionTables::Member separator = nullptr;

} // namespace

void Scrivara::createToolBars()
{
    TRACE_ENTER_ON(logInfo);
    createFileToolBar();

    m_editToolBar = createToolBar("ScvEditToolBar", tr("Edit"), Qt::TopToolBarArea);
    addActions(m_editToolBar, {&Form::actionCut, &Form::actionCopy, &Form::actionPaste, &Form::actionRemove, separator,
                               &Form::actionUndo, &Form::actionRedo});
    createViewToolBar();

    m_modeToolBar = createToolBar("ScvModeToolBar", tr("Mode"), Qt::LeftToolBarArea);
    addActions(m_modeToolBar, {&Form::actionToolTextMode, &Form::actionTransformationMode});
    createNormToolsToolBar();

    m_shapesToolBar = createToolBar("ScvShapesToolBar", tr("Shapes"), Qt::TopToolBarArea);
    addActions(m_shapesToolBar,
               {&Form::actionToolRectangle, &Form::actionToolRoundedRectangle, &Form::actionToolEllipse});

    m_linesToolBar = createToolBar("ScvLinesToolBar", tr("Lines"), Qt::TopToolBarArea);
    addActions(m_linesToolBar, {&Form::actionSimpleLine, &Form::actionEmptyCirclesLine, &Form::actionFilledCirclesLine,
                                &Form::actionFilledEmptyCirclesLine, separator, &Form::actionArrow,
                                &Form::actionTwoArrows, &Form::actionEmptyCircleArrow, &Form::actionFilledCircleArrow});

    m_bracketsToolBar = createToolBar("ScvBracketsToolBar", tr("Brackets"), Qt::TopToolBarArea);
    addActions(m_bracketsToolBar, {&Form::actionCurlyBracket, &Form::actionRectBracket});

    m_stdToolsToolBar = createToolBar("ScvStdToolsToolBar", tr("Pens and Markers"), Qt::LeftToolBarArea);
    addActions(m_stdToolsToolBar,
               {&Form::actionThinBlackPen, &Form::actionThinRedPen, &Form::actionThinGreenPen, &Form::actionThinBluePen,
                separator, &Form::actionMediumBlackPen, &Form::actionMediumRedPen, &Form::actionMediumGreenPen,
                &Form::actionMediumBluePen, separator, &Form::actionRedMarker, &Form::actionGreenMarker,
                &Form::actionBlueMarker, &Form::actionYellowMarker});

    m_helpToolBar = createToolBar("ScvHelpToolBar", tr("Help"), Qt::TopToolBarArea);
    addActions(m_helpToolBar, {&Form::actionUserGuide});
    createSearchToolBar();
    TRACE_LEAVE_ON(logInfo);
}

QToolBar *Scrivara::createToolBar(const char *name, const QString &barTitle, Qt::ToolBarArea area)
{
    auto *bar = new QToolBar(barTitle, this);
    bar->setObjectName(QString::fromLatin1(name));
    addToolBar(area, bar);
    return bar;
}

void Scrivara::addActions(QToolBar *bar, std::initializer_list<ActionMember> actions)
{
    for (ActionMember action : actions) {
        if (action == separator)
            bar->addSeparator();
        else
            bar->addAction(this->*action);
    }
}

void Scrivara::createFileToolBar()
{
    m_fileToolBar = createToolBar("ScvFileToolBar", tr("File"), Qt::TopToolBarArea);
    auto *openButton = new QToolButton(this);
    openButton->setMenu(recentFilesMenu);
    openButton->setDefaultAction(actionOpen);
    openButton->setPopupMode(QToolButton::MenuButtonPopup);
    m_fileToolBar->addAction(actionNewProject);
    m_fileToolBar->addWidget(openButton);
    addActions(m_fileToolBar, {&Form::actionSave, separator, &Form::actionExportToPdf});
}

void Scrivara::createViewToolBar()
{
    m_viewToolBar = createToolBar("ScvViewToolBar", tr("View"), Qt::TopToolBarArea);
    m_zoomBox = new QComboBox(this);
    m_zoomBox->setToolTip(tr("Actual Page Size"));
    for (int index = 0; index < ZoomSteps::count; ++index)
        m_zoomBox->addItem(QStringLiteral("%1%").arg(ZoomSteps::percentOf(index)));
    m_zoomBox->setCurrentIndex(ZoomSteps::ownSize);
    connect(m_zoomBox, &QComboBox::currentIndexChanged, this, &Scrivara::changeSize);
    addActions(m_viewToolBar, {&Form::actionZoomOut, &Form::actionZoomIn});
    m_viewToolBar->addWidget(m_zoomBox);
    addActions(m_viewToolBar, {separator, &Form::actionFullScreen});
}

void Scrivara::createNormToolsToolBar()
{
    m_normToolsToolBar = createToolBar("ScvNormToolsToolBar", tr("Basic Tools"), Qt::LeftToolBarArea);
    addActions(m_normToolsToolBar, {&Form::actionToolPen, &Form::actionToolMarker, &Form::actionTextBox, separator,
                                    &Form::actionToolEraser, separator});
    m_normToolsToolBar->addWidget(m_lineColorPicker);
    m_normToolsToolBar->addWidget(m_fillColorPicker);
}

void Scrivara::createSearchToolBar()
{
    m_searchToolBar = createToolBar("ScvSearchToolBar", tr("Find"), Qt::BottomToolBarArea);
    m_searchToolBar->setAllowedAreas(Qt::BottomToolBarArea);
    m_searchToolBar->setFloatable(false);
    m_searchToolBar->setMovable(false);

    m_searchCloseButton = new QToolButton(m_searchToolBar);
    m_searchCloseButton->setIcon(QIcon(QStringLiteral(":/search_icons/close.png")));
    connect(m_searchCloseButton, &QToolButton::clicked, m_searchToolBar, &QToolBar::hide);

    m_searchBox = new QComboBox(m_searchToolBar);
    m_searchBox->setEditable(true);
    // It would put an older search in the place of its first letters, and take "One" for "one".
    m_searchBox->setCompleter(nullptr);
    m_searchBox->setMinimumWidth(200);
    connect(m_searchBox, &QComboBox::activated, this, &Scrivara::searchNext);

    m_searchPrevButton = new QToolButton(m_searchToolBar);
    m_searchPrevButton->setText(tr("Previous"));
    m_searchPrevButton->setIcon(QIcon(QStringLiteral(":/search_icons/backward.png")));
    connect(m_searchPrevButton, &QToolButton::clicked, this, &Scrivara::searchPrev);

    m_searchNextButton = new QToolButton(m_searchToolBar);
    m_searchNextButton->setText(tr("Next"));
    m_searchNextButton->setIcon(QIcon(QStringLiteral(":/search_icons/forward.png")));
    connect(m_searchNextButton, &QToolButton::clicked, this, &Scrivara::searchNext);

    m_searchCaseBox = new QCheckBox(tr("Case Sensitive"), m_searchToolBar);
    m_searchWordsBox = new QCheckBox(tr("Whole Words"), m_searchToolBar);

    for (QWidget *widget : std::initializer_list<QWidget *>{m_searchCloseButton, m_searchBox, m_searchPrevButton,
                                                            m_searchNextButton, m_searchCaseBox, m_searchWordsBox})
        m_searchToolBar->addWidget(widget);
    m_searchToolBar->hide();
}

QtColorPicker *Scrivara::createColorPicker(const QString &toolTip, void (Scrivara::*slot)(QColor))
{
    auto *picker = new QtColorPicker(this, -1, true);
    picker->setStandardColors();
    picker->setToolTip(toolTip);
    connect(picker, &QtColorPicker::colorChanged, this, slot);
    return picker;
}

/// Registers the bars that the user may rearrange.
void Scrivara::createToolBarManager()
{
    TRACE_ENTER_ON(logInfo);
    m_toolBarManager = new QtToolBarManager(this);
    m_toolBarManager->setMainWindow(this);
    m_toolBarManager->addToolBar(m_shapesToolBar, QT_TR_NOOP("Shapes"));
    m_toolBarManager->addToolBar(m_linesToolBar, QT_TR_NOOP("Lines"));
    m_toolBarManager->addToolBar(m_bracketsToolBar, QT_TR_NOOP("Brackets"));
    m_toolBarManager->addToolBar(m_stdToolsToolBar, QT_TR_NOOP("StdTools"));
    TRACE_LEAVE_ON(logInfo);
}

void Scrivara::customizeToolBars()
{
    TRACE_ENTER;
    (logTrace << "Customize tool bars").eol(0);
    QtToolBarDialog dialog;
    // The categories have their names from the start; the language may have changed since.
    dialog.setCategoryTitles([](const QString &category) { return tr(category.toUtf8().constData()); });
    dialog.setToolBarManager(m_toolBarManager);
    dialog.exec();
    TRACE_LEAVE;
}

void Scrivara::createStatusBar()
{
    TRACE_ENTER_ON(logInfo);
    m_statusLabel = new QLabel(tr("        "), this);
    auto *modifiedLabel = new QLabel(tr("MOD"), this);
    m_progressBar = new QProgressBar(this);
    m_progressBar->setTextVisible(true);
    m_progressBar->setMaximumHeight(10);
    QFont small = m_progressBar->font();
    small.setPixelSize(8); // fits the low bar
    m_progressBar->setFont(small);
    m_progressBar->setRange(0, 100);
    m_lockButton = createStatusButton(QStringLiteral(":/main_window/lock.png"), tr("Unlock document"));
    m_syntaxButton = createStatusButton(QStringLiteral(":/main_window/highsyntax.png"), tr("Highlight syntax"));
    connect(m_syntaxButton, &QToolButton::toggled, this, &Scrivara::currHighlightSyntax);

    statusbar->setContentsMargins(6, 0, 6, 0); // a maximised window has no grip to keep the last part off the edge
    statusbar->addWidget(m_statusLabel, 2);
    statusbar->addPermanentWidget(modifiedLabel, 0);
    statusbar->addPermanentWidget(m_lockButton, 0);
    statusbar->addPermanentWidget(m_syntaxButton, 0);
    statusbar->addPermanentWidget(m_progressBar, 1);
    TRACE_LEAVE_ON(logInfo);
}

QToolButton *Scrivara::createStatusButton(const QString &icon, const QString &toolTip)
{
    auto *button = new QToolButton(this);
    button->setIcon(QIcon(icon));
    button->setCheckable(true);
    button->setChecked(true);
    button->setAutoRaise(true);
    button->setToolTip(toolTip);
    return button;
}

void Scrivara::createPopupMenus()
{
    TRACE_ENTER_ON(logInfo);
    m_popupMenu = new QMenu(this);
    resetPopupMenu();
    TRACE_LEAVE_ON(logInfo);
}
