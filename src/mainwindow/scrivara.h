// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/annotationclipboard.h"
#include "documents/documenthost.h"
#include "mainwindow/mailprocess.h"
#include "persistence/paperfile.h"
#include "statistics/statisticshost.h"
#include "tools/toolhost.h"
#include "ui_mainwindow.h"
#include "widgets/taghost.h"
#include "widgets/viewhost.h"

#include <QColor>
#include <QList>
#include <QMainWindow>
#include <QString>
#include <QTranslator>

#include <array>
#include <initializer_list>
#include <optional>
#include <span>

class AboutDialog;
class ActiveElementDialog;
class ActiveElementsList;
class BracketTool;
class ConfigDialog;
class DrawingTool;
class EraserTool;
class FullscreenDialog;
class LineTool;
class MarkerTool;
class PageStack;
class PageView;
class PenTool;
class QActionGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QPrinter;
class QProgressBar;
class QToolBar;
class QToolButton;
class QtColorPicker;
class QtToolBarManager;
class ScreenShotTool;
class ShapeTool;
class StatisticsDialog;
class TextBoxTool;
class ViewModeDialog;
struct WindowLayout;

/// The one window of the program. It owns actions, menus and tool bars, the stack of open documents, the mode in
/// which the mouse is read and the record of the current tool; every command arrives here as a slot and is handed
/// on to the document in front. A command that needs a document and finds none returns quietly.
///
/// Widgets and actions belong to the window through Qt's parents. The tools outlive it: they go with the
/// application object.
class Scrivara : public QMainWindow,
                 private Ui::MainWindow,
                 public DocumentHost,
                 public ToolHost,
                 public ViewHost,
                 public TagHost,
                 public StatisticsHost
{
    Q_OBJECT

public:
    /// Builds the whole window, loads the settings and opens @p files in order; nothing is on the screen before
    /// showWindow(). Needs the application object.
    Scrivara(QStringList &files, QWidget *parent);
    ~Scrivara() override;

    /// Puts the window on the screen where the settings have it.
    void showWindow();

    /// Folder of the program's data with the logical name @p name, ending in a separator; see dataFolder().
    static QString folderPath(const QString &name);

    Tool *currentTool() const override;
    int mode() const override;
    /// Null until the first document is opened or made.
    PageStack *pageStack() const override;
    /// The document in front, or null.
    Page *currentPage() const override;

    void toggleFullScreen() override;
    /// Full screen as the program means it: all bars are hidden. Hides QWidget's notion of the window's state.
    bool isFullScreen() const override;
    void showStandardView(bool updateActions) override;
    void showCompactView(bool updateActions);
    void showMinimalView(bool updateActions);

    QString title() const override;
    QString lastOpenDir() const override;
    QLabel *statusLabel() const override;
    QProgressBar *progressBar() const override;
    QMenu *popupMenu() const override;
    QUndoGroup *undoGroup() const override;
    QWidget *hostWindow() override;

    QList<Annotation *> *annotationClipboard() override;
    void clearAnnotationClipboard() override;
    void addToAnnotationClipboard(Annotation *annotation) override;
    void registerActiveElement(ActiveElement *element, Page *page) override;
    bool editActiveElement(ActiveElement *element, Qt::WindowFlags flags) override;
    void focusActiveElement(Annotation *element, Page *page) override;
    /// The command of the system's mail client, which is stored in the settings; "(empty)" if it has none.
    QString detectMailClient();

    void restorePreviousTool() override;
    void setCurrentFile(const QString &path) override;

    // The order of the slots is fixed: generated tables go by their numbers.
public slots:
    void newProject();
    void openFile();
    void openRecentFile();
    bool saveFile();
    bool saveAsFile();
    void closeFile();
    void exportToPdf();
    void printPreview();
    void printFile();
    void sendEmail();
    void exitProgram() override;
    void currFileToPrinter(QPrinter *printer);
    void cut();
    void copy();
    void paste();
    void remove();
    void showSearchToolBar();
    void search(QString toFind);
    void searchPrev();
    void searchNext();
    void removeAllAnnotations();
    void zoomIn();
    void zoomOut();
    void changeSize();
    void fullScreenMode(bool fullScreen);
    void hideAnnotations(bool hide);
    /// @p toWhat is 0 for the Standard layout, 1 for Compact, 2 for Minimal; other values change nothing.
    void switchView(int toWhat);
    void updateMenuToolBars();
    void updateToolBars();
    void showActiveElementsList(bool show);
    void customizeToolBars();
    void setTextMode(bool text);
    void setTransformMode(bool transform);
    /// The three tool families also run when one of their actions is unchecked, with that action's id.
    void useLine(int styleId);
    void useBracket(int styleId);
    void useShape(int styleId);
    void useTextBox(bool use);
    void usePen(bool use);
    void useMarker(bool use);
    void useEraser(bool use);
    void lineColor(QColor color);
    void fillColor(QColor color);
    void showConfigDialog(int tabNum);
    void switchLanguage(QAction *action);
    void useScreenShot(bool use);
    void showStatistics();
    void showUserGuide();
    void gotoHomePage();
    void showAboutBox();
    void usePredefinedTool(int toolId);
    void tabChanged();
    void updateDocFont(QString fontFamily, int fontSize);
    void currHighlightSyntax(bool on);
    void loadSettings();
    void saveSettings();
    void updateMenus() override;
    void sendFileViaEmail(QString fileName) override;
    void sendFileViaEmail();
    void addActiveElement(int id);

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    static constexpr const char *traceTag = "Scv ";

    using ActionMember = QAction *Ui_MainWindow::*;
    enum ViewMode { StandardView = 0, CompactView = 1, MinimalView = 2 };
    static constexpr std::size_t thinRedPen = 1; ///< Id of the one tool that goes with the window.

    // Construction, in the order in which the constructor calls it.
    void buildGui();
    void createMainArea();
    void createRecentFileActions();
    QtColorPicker *createColorPicker(const QString &toolTip, void (Scrivara::*slot)(QColor));
    void createToolBars();
    void createFileToolBar();
    void createViewToolBar();
    void createNormToolsToolBar();
    void createSearchToolBar();
    QToolBar *createToolBar(const char *name, const QString &title, Qt::ToolBarArea area);
    void addActions(QToolBar *bar, std::initializer_list<ActionMember> actions);
    void createToolBarManager();
    void createActions();
    void connectTriggeredActions();
    void connectToggledActions();
    void createMappers();
    void createMapper(std::span<const ActionMember> actions, void (QAction::*signal)(bool),
                      void (Scrivara::*slot)(int));
    void createActionGroups();
    void addToGroup(QActionGroup *group, std::span<const ActionMember> actions);
    void setupShortcuts();
    void createActiveElementsUi();
    void createStatusBar();
    QToolButton *createStatusButton(const QString &icon, const QString &toolTip);
    void createPopupMenus();
    void createTools();
    void createPredefinedTools();
    void setupDefaults();
    void centreOnScreen();
    void openListedFiles(const QStringList &files);
    QWidgetList mappableParts();
    void holdMapping();
    QWidgetList releaseMapping();

    // Applying state to the document in front.
    PageView *currentView() const;
    void applyViewCursor();
    void updateCurrentState();
    void applyDocumentColors(Page *page);
    void applyTabsPosition();
    void showTitle(const QString &name, bool modified);
    void centreOnWindow(QDialog *dialog) const;

    void setEnabled(std::span<const ActionMember> actions, bool enabled);
    bool canCopy() const;
    bool canPaste();
    void updateEditActions();
    void updatePageActions();
    void checkLanguageAction();
    void syncZoomBox();

    PageView *showInNewTab(Page *page);
    void addNewPage(Page *page);
    bool activateDocument(const QString &path);
    bool openDocument(const QString &path);
    void updateRecentFileActions();
    QString buildOpenFilter(const QString &selected) const;

    // The only ways to another mode or tool: a gesture that is under way ends without a mark.
    void setMode(DocumentMode mode);
    void setCurrentTool(Tool *tool, QAction *action);
    void selectTool(Tool *tool, QAction *action);
    template<std::size_t N, typename T>
    bool selectFromFamily(const std::array<T *, N> &tools, const std::array<ActionMember, N> &actions, int id);
    void selectDrawingTool(DrawingTool *tool, QAction *action);
    void applyToolColors(bool brushToo);
    void showToolCursor();

    void resetPopupMenu();
    void addToolMenuToPopup();
    void applyLayout(const WindowLayout &layout);
    void showRestored();
    void checkViewAction(ViewMode mode);
    void stepZoom(int steps);

    void exportTo(const QString &name, PaperFile::Format format);
    QString attachmentOf(Page *page);
    void searchStep(bool forward);

    void loadTranslations(const QString &locale);
    void retranslateTexts();
    void retranslateToolBars();
    void emptyTemporaryFolder();

    QString m_title;
    QTranslator m_appTranslator;
    QTranslator m_qtTranslator;

    PageStack *m_pageStack = nullptr;
    QLabel *m_statusLabel = nullptr;
    QProgressBar *m_progressBar = nullptr;
    QToolButton *m_lockButton = nullptr;
    QToolButton *m_syntaxButton = nullptr; ///< Source of truth for highlighting during the run.

    AboutDialog *m_aboutDialog = nullptr;                 ///< Made on first use.
    StatisticsDialog *m_statisticsDialog = nullptr;       ///< Made on first use.
    ActiveElementDialog *m_activeElementDialog = nullptr; ///< For new tags.
    ActiveElementsList *m_activeElementsList = nullptr;
    ConfigDialog *m_configDialog = nullptr; ///< Made on first use.
    FullscreenDialog *m_fullscreenDialog = nullptr;
    ViewModeDialog *m_viewModeDialog = nullptr;
    QtToolBarManager *m_toolBarManager = nullptr; ///< Knows the four bars that the user may rearrange.

    QToolBar *m_fileToolBar = nullptr;
    QToolBar *m_editToolBar = nullptr;
    QToolBar *m_viewToolBar = nullptr;
    QToolBar *m_helpToolBar = nullptr;
    QToolBar *m_modeToolBar = nullptr;
    QToolBar *m_normToolsToolBar = nullptr;
    QToolBar *m_shapesToolBar = nullptr;
    QToolBar *m_linesToolBar = nullptr;
    QToolBar *m_bracketsToolBar = nullptr;
    QToolBar *m_stdToolsToolBar = nullptr;
    QToolBar *m_searchToolBar = nullptr;

    QToolButton *m_searchCloseButton = nullptr;
    QComboBox *m_searchBox = nullptr;
    QToolButton *m_searchNextButton = nullptr;
    QToolButton *m_searchPrevButton = nullptr;
    QCheckBox *m_searchCaseBox = nullptr;
    QCheckBox *m_searchWordsBox = nullptr;

    QString m_lastSearchText; ///< What the search bar looked for last.

    QList<QAction *> m_recentFileActions;
    int m_recentLimit = 0;

    QActionGroup *m_languageGroup = nullptr;

    QComboBox *m_zoomBox = nullptr;
    QMenu *m_popupMenu = nullptr;
    QUndoGroup *m_undoGroup = nullptr;
    AnnotationClipboard m_annotationClipboard;
    std::optional<bool> m_clipboardHasText; ///< Empty when the system clipboard has changed since it was last read.

    Tool *m_currentTool = nullptr;
    QAction *m_currentToolAction = nullptr;
    QAction *m_previousToolAction = nullptr;

    PenTool *m_defaultPen = nullptr;
    MarkerTool *m_defaultMarker = nullptr;
    std::array<DrawingTool *, 12> m_predefinedTools{}; ///< By tool id: eight pens, four markers.
    EraserTool *m_eraser = nullptr;
    TextBoxTool *m_textBoxTool = nullptr;
    std::array<LineTool *, 8> m_lineTools{};       ///< By style id.
    std::array<ShapeTool *, 3> m_shapeTools{};     ///< By shape id.
    std::array<BracketTool *, 2> m_bracketTools{}; ///< By bracket id.
    ScreenShotTool *m_screenShotTool = nullptr;

    QtColorPicker *m_lineColorPicker = nullptr;
    QtColorPicker *m_fillColorPicker = nullptr;

    int m_mode = ToolMode;
    QString m_appLanguage; ///< "default", "en", "pl", "fr" or a system locale name.
    int m_viewMode = StandardView;
    QString m_lastOpenDir;
    bool m_fullScreen = false;
    MailProcess m_mailProcess;
};
