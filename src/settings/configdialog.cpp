// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/configdialog.h"

#include "settings/emailtab.h"
#include "settings/lineandbrackettab.h"
#include "settings/markertab.h"
#include "settings/othertab.h"
#include "settings/pageviewtab.h"
#include "settings/pentab.h"
#include "settings/printtab.h"
#include "settings/screenshottab.h"
#include "settings/shapetab.h"
#include "settings/syntaxtab.h"
#include "settings/textboxtab.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>

#include <algorithm>

namespace {

struct PageEntry
{
    const char *text;         ///< In the list.
    const char *retranslated; ///< The same after a change of the language.
    const char *icon;         ///< Null for the one that comes with Qt.
};

/// By page index.
constexpr std::array pageEntries{
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Pen Tool"), "Pen Tool", ":/config_icons/pen.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Marker Tool"), "Marker Tool", ":/config_icons/marker.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "TextBox Tool"), "TextBox Tool", ":/config_icons/textbox.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Line Tool"), "Line Tool", ":/config_icons/line4.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Shape Tool"), "Shape Tool", ":/config_icons/round_rect.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Snapshot Tool"), "Snapshot Tool", ":/config_icons/screenshot.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Page"), "Page", nullptr},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Syntax"), "Syntax", ":/config_icons/syntax.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Printout"), QT_TRANSLATE_NOOP("ConfigDialog", "Print"),
              ":/config_icons/printer.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "Others"), "Others", ":/config_icons/other.png"},
    PageEntry{QT_TRANSLATE_NOOP("ConfigDialog", "E-mail"), "E-mail", ":/config_icons/mail.png"},
};

/// The page index of each row of the list.
constexpr std::array rowOrder{0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 9};

/// The single page of Qt's print preview, or our own where Qt has none under that name.
QIcon singlePageIcon()
{
    const QString path = QStringLiteral(":/qt-project.org/dialogs/qprintpreviewdialog/images/view-pages-single-%1.png");
    if (!QFile::exists(path.arg(24)))
        return QIcon(QStringLiteral(":/config_icons/page.png"));
    QIcon icon(path.arg(24));
    icon.addFile(path.arg(32));
    return icon;
}

} // namespace

ConfigDialog::ConfigDialog(int tabNum, QWidget *parent)
    : QDialog(parent), m_list(new QListWidget(this)), m_stack(new QStackedWidget(this))
{
    createPageList();
    createPages();
    createButtons();
    arrange();
    softenSelection();
    setWindowTitle(tr("Kestrin 7 - Settings"));
    goToPage(tabNum);
    loadPages();
    connect(m_list, &QListWidget::currentItemChanged, this, &ConfigDialog::changePage);
    setFixedSize(600, 400);
    loadPages();
}

ConfigDialog::~ConfigDialog() = default;

void ConfigDialog::selectPage(int tabNum)
{
    goToPage(tabNum);
    loadPages();
}

QFont ConfigDialog::documentFont() const
{
    return m_pageViewTab->documentFont();
}

void ConfigDialog::setDocumentFont(const std::optional<QFont> &font)
{
    m_pageViewTab->setDocumentFont(font);
}

void ConfigDialog::updateAndClose()
{
    QSettings settings;
    for (SettingsTab *tab : m_tabs)
        tab->store(settings);
    QApplication::restoreOverrideCursor();
    accept();
}

void ConfigDialog::changePage(QListWidgetItem *current, QListWidgetItem *previous)
{
    const auto found = std::find(m_items.begin(), m_items.end(), current != nullptr ? current : previous);
    m_stack->setCurrentIndex(found == m_items.end() ? 0 : int(found - m_items.begin()));
}

void ConfigDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        softenSelection();
    QDialog::changeEvent(event);
}

void ConfigDialog::createPageList()
{
    m_list->setIconSize(QSize(20, 20));
    m_list->setMovement(QListView::Static);
    m_list->setMinimumWidth(168);
    m_list->setMaximumWidth(170);
    m_list->setSpacing(1);
    m_list->setAccessibleName(tr("Pages"));
    for (const int index : rowOrder) {
        const PageEntry &entry = pageEntries.at(std::size_t(index));
        auto *item =
            new QListWidgetItem(entry.icon != nullptr ? QIcon(entry.icon) : singlePageIcon(), tr(entry.text), m_list);
        item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        m_items.at(std::size_t(index)) = item;
    }
}

void ConfigDialog::createPages()
{
    m_pageViewTab = new PageViewTab;
    m_tabs = {new PenTab,    new MarkerTab, new TextBoxTab, new LineAndBracketTab, new ShapeTab, new ScreenshotTab,
              m_pageViewTab, new SyntaxTab, new PrintTab,   new OtherTab,          new EmailTab};
    for (SettingsTab *tab : m_tabs)
        m_stack->addWidget(tab);
}

void ConfigDialog::createButtons()
{
    m_okButton = new QPushButton(tr("OK"), this);
    m_cancelButton = new QPushButton(tr("Cancel"), this);
    m_okButton->setDefault(true);
    connect(m_okButton, &QPushButton::clicked, this, &ConfigDialog::updateAndClose);
    connect(m_cancelButton, &QPushButton::clicked, this, &ConfigDialog::close);
}

void ConfigDialog::arrange()
{
    auto *pages = new QHBoxLayout;
    pages->addWidget(m_list);
    pages->addWidget(m_stack, 1);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_okButton);
    buttons->addWidget(m_cancelButton);

    auto *rows = new QVBoxLayout(this);
    // The pages take nearly all of the height; the stretch below them is what they leave.
    rows->addLayout(pages, 100);
    rows->addStretch(1);
    rows->addSpacing(12);
    rows->addLayout(buttons);
}

/// The icons would drown in the full colour of a selection, which is blue like most of them.
void ConfigDialog::softenSelection()
{
    constexpr double strength = 0.25;
    QPalette soft = palette();
    const QColor full = soft.color(QPalette::Highlight);
    const QColor base = soft.color(QPalette::Base);
    const auto mix = [](double a, double b) { return float(a * strength + b * (1 - strength)); };
    soft.setColor(QPalette::Highlight,
                  QColor::fromRgbF(mix(full.redF(), base.redF()), mix(full.greenF(), base.greenF()),
                                   mix(full.blueF(), base.blueF())));
    soft.setColor(QPalette::HighlightedText, soft.color(QPalette::Text));
    m_list->setPalette(soft);
}

void ConfigDialog::goToPage(int index)
{
    const int page = index >= 0 && index < pageCount ? index : 0;
    m_stack->setCurrentIndex(page);
    m_list->setCurrentItem(m_items.at(std::size_t(page)));
}

void ConfigDialog::loadPages()
{
    const QSettings settings;
    for (SettingsTab *tab : m_tabs)
        tab->load(settings);
}

void ConfigDialog::retranslate()
{
    m_okButton->setText(tr("Ok"));
    m_cancelButton->setText(tr("Cancel"));
    setWindowTitle(tr("Kestrin 7 - Settings"));
    m_list->setAccessibleName(tr("Pages"));
    for (std::size_t i = 0; i < pageEntries.size(); ++i)
        m_items.at(i)->setText(tr(pageEntries.at(i).retranslated));
}
