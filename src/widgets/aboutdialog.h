// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class AboutDialog;
}

/// The about box: a page about the program, a page with the licence, and the way to the maker's web site.
///
/// It opens on the about page each time it is shown.
class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~AboutDialog() override;

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private slots:
    void showAboutInfo();
    void showLicense();
    void gotoHomePage();
    /// Shows the HTML text of @p fileName, its lines joined with nothing in between. False, with nothing changed, if
    /// the file cannot be opened.
    bool loadTextInfo(const QString &fileName);

private:
    /// Sets the texts that the form does not hold.
    void setTexts();

    std::unique_ptr<Ui::AboutDialog> m_ui;
    QString m_titleTail;
    QString m_legalNotice; ///< plain text
};
