// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/aboutdialog.h"

#include "ui_aboutdialog.h"
#include "widgets/lightscrollbars.h"

#include <QDesktopServices>
#include <QEvent>
#include <QFile>
#include <QMenu>
#include <QTextStream>
#include <QUrl>

AboutDialog::AboutDialog(QWidget *parent, Qt::WindowFlags flags)
    : QDialog(parent, flags), m_ui(std::make_unique<Ui::AboutDialog>())
{
    m_ui->setupUi(this);
    setFixedSize(size());
    setTexts();

    // The browser's background is light whatever the palette, so its texts must be dark.
    QPalette browserPalette = m_ui->textBrowser->palette();
    browserPalette.setColor(QPalette::Text, QColor(26, 26, 26));
    m_ui->textBrowser->setPalette(browserPalette);
    m_ui->textBrowser->document()->setDefaultStyleSheet(QStringLiteral("a { color: #00557f; }"));
    lightenScrollBars(m_ui->textBrowser);
    // A menu of the browser's own would have its light background without its dark text.
    m_ui->textBrowser->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_ui->textBrowser, &QWidget::customContextMenuRequested, this, [this](const QPoint &position) {
        QMenu *menu = m_ui->textBrowser->createStandardContextMenu(position);
        menu->setParent(this, menu->windowFlags());
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(m_ui->textBrowser->viewport()->mapToGlobal(position));
    });
    m_ui->textBrowser->setOpenLinks(true);
    m_ui->textBrowser->setOpenExternalLinks(true);

    connect(m_ui->aboutButton, &QPushButton::clicked, this, &AboutDialog::showAboutInfo);
    connect(m_ui->licenseButton, &QPushButton::clicked, this, &AboutDialog::showLicense);
    connect(m_ui->homePageButton, &QPushButton::clicked, this, &AboutDialog::gotoHomePage);
    connect(m_ui->okButton, &QPushButton::clicked, this, &AboutDialog::accept);
}

AboutDialog::~AboutDialog() = default;

void AboutDialog::showEvent(QShowEvent *event)
{
    showAboutInfo();
    QDialog::showEvent(event);
}

void AboutDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        setTexts();
    }
    QWidget::changeEvent(event);
}

void AboutDialog::showAboutInfo()
{
    if (!loadTextInfo(QStringLiteral(":/txt/text/About.html")))
        m_ui->textBrowser->setPlainText(tr("'About' information not available!"));
    m_ui->textBrowser->append(
        QStringLiteral("<div style=\"color:#aaaaaa\">%1</div>").arg(m_legalNotice.toHtmlEscaped()));
    m_ui->textBrowser->moveCursor(QTextCursor::Start);
}

void AboutDialog::showLicense()
{
    if (!loadTextInfo(QStringLiteral(":/txt/text/License.html")))
        m_ui->textBrowser->setPlainText(tr("No information about license available!"));
}

void AboutDialog::gotoHomePage()
{
    QDesktopServices::openUrl(QUrl(QStringLiteral("https://www.moorfield.example/index.html")));
}

bool AboutDialog::loadTextInfo(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QTextStream in(&file);
    QString html;
    while (!in.atEnd())
        html += in.readLine();
    file.close();
    m_ui->textBrowser->setHtml(html);
    return true;
}

void AboutDialog::setTexts()
{
    m_titleTail = tr(" About");
    m_legalNotice = tr("Copyright Moorfield. Comes without any warranty.");
    setWindowTitle(QStringLiteral("Kestrin 7") + m_titleTail);
}
