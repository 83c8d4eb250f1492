// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/settingstab.h"
#include "settings/syntaxdefinition.h"
#include "ui_syntaxsettpanel.h"

#include <memory>
#include <vector>

class GroupDialog;

/// The syntax definitions, one for each file extension: their patterns, fonts and colours. Edits stay in memory until
/// the page is stored, which writes the definitions that were edited.
class SyntaxTab : public FormTab<Ui::SyntaxSettPanel>
{
    Q_OBJECT

public:
    explicit SyntaxTab(QWidget *parent = nullptr);
    ~SyntaxTab() override;

    /// Also brings the list of definitions in step with the files of the syntax folder.
    void load(const QSettings &settings) override;
    /// One message names all definitions that could not be written.
    void store(QSettings &settings) override;

private slots:
    void newExtension();
    void editElement();
    void elementFont();
    void elementColor();
    void elementBgColor();

private:
    void updateDefinitions();
    void showExtensions();
    SyntaxFile *definitionOf(const QString &extension) const;
    // Null if there is no such definition or row.
    QVector<QString> *patterns(const QString &extension, int row) const;
    QTextCharFormat *format(const QString &extension, int row) const;
    QTextCharFormat *currentFormat() const;
    void chooseColor(QTextFormat::Property property);

    std::vector<std::unique_ptr<SyntaxDefinition>> m_definitions;
    GroupDialog *m_groupDialog;
};
