// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/syntaxtab.h"

#include "app/folders.h"
#include "settings/groupdialog.h"

#include <QColorDialog>
#include <QDir>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>

#include <algorithm>

namespace {

/// Whether the extension can be a part of a file name.
bool isNamePart(const QString &extension)
{
    return !extension.contains(QLatin1Char('/')) && !extension.contains(QLatin1Char('\\')) &&
           !extension.contains(QChar(QChar::Null));
}

} // namespace

SyntaxTab::SyntaxTab(QWidget *parent) : FormTab(parent), m_groupDialog(new GroupDialog(this))
{
    connect(m_ui.newButton, &QPushButton::clicked, this, &SyntaxTab::newExtension);
    connect(m_ui.editButton, &QPushButton::clicked, this, &SyntaxTab::editElement);
    connect(m_ui.fontToolButton, &QToolButton::clicked, this, &SyntaxTab::elementFont);
    connect(m_ui.colorToolButton, &QToolButton::clicked, this, &SyntaxTab::elementColor);
    connect(m_ui.bgColorToolButton, &QToolButton::clicked, this, &SyntaxTab::elementBgColor);
    m_ui.elementsListWidget->setCurrentRow(0);
    bindings().bind(m_ui.defaultHighlightCheckBox, QStringLiteral("Syntax/HighlightByDefault"), true);
}

SyntaxTab::~SyntaxTab() = default;

void SyntaxTab::load(const QSettings &settings)
{
    FormTab::load(settings);
    updateDefinitions();
    showExtensions();
}

void SyntaxTab::store(QSettings &settings)
{
    FormTab::store(settings);
    QStringList unsaved;
    for (const auto &definition : m_definitions) {
        if (!definition->save())
            unsaved.append(definition->file().path());
    }
    if (unsaved.isEmpty())
        return;
    QMessageBox box(QMessageBox::Warning, tr("Warning"),
                    tr("Can't save syntax file: %1 !").arg(unsaved.join(QStringLiteral(",\n"))), QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void SyntaxTab::newExtension()
{
    const QString extension =
        QInputDialog::getText(this, tr("Register extension"), tr("New file extension: "), QLineEdit::Normal, QString());
    if (extension.isEmpty() || !isNamePart(extension))
        return;
    if (m_ui.extensionComboBox->findText(extension) >= 0) {
        QMessageBox::warning(this, tr("Warning"), tr("This file extension is already registered!"));
        return;
    }
    m_ui.extensionComboBox->addItem(QIcon(), extension);
    m_definitions.push_back(std::make_unique<SyntaxDefinition>(extension + QStringLiteral(".xml")));
}

void SyntaxTab::editElement()
{
    if (m_groupDialog->setPatterns(
            patterns(m_ui.extensionComboBox->currentText(), m_ui.elementsListWidget->currentRow())))
        m_groupDialog->exec();
}

void SyntaxTab::elementFont()
{
    QTextCharFormat *format = currentFormat();
    if (format == nullptr)
        return;
    bool confirmed = false;
    const QFont font = QFontDialog::getFont(&confirmed, format->font(), this);
    if (confirmed)
        format->setFont(font);
}

void SyntaxTab::elementColor()
{
    chooseColor(QTextFormat::ForegroundBrush);
}

void SyntaxTab::elementBgColor()
{
    chooseColor(QTextFormat::BackgroundBrush);
}

void SyntaxTab::updateDefinitions()
{
    const QDir folder(dataFolder(QStringLiteral("syntax")));
    const QStringList files = folder.entryList({QStringLiteral("*.xml")}, QDir::Files | QDir::Hidden, QDir::Name);
    std::erase_if(m_definitions, [](const auto &definition) { return !definition->isKept(); });
    for (const QString &file : files) {
        const bool known = std::any_of(m_definitions.begin(), m_definitions.end(), [&file](const auto &definition) {
            return definition->file().fileName() == file;
        });
        if (!known)
            m_definitions.push_back(std::make_unique<SyntaxDefinition>(file));
    }
    for (const auto &definition : m_definitions)
        definition->revert();
}

/// Fills the box with the extensions; the current one stays.
void SyntaxTab::showExtensions()
{
    const QString current = m_ui.extensionComboBox->currentText();
    m_ui.extensionComboBox->clear();
    for (const auto &definition : m_definitions)
        m_ui.extensionComboBox->addItem(definition->extension());
    m_ui.extensionComboBox->setCurrentIndex(std::max(m_ui.extensionComboBox->findText(current), 0));
}

SyntaxFile *SyntaxTab::definitionOf(const QString &extension) const
{
    const auto found = std::find_if(m_definitions.begin(), m_definitions.end(), [&extension](const auto &definition) {
        return definition->extension() == extension;
    });
    return found == m_definitions.end() ? nullptr : &(*found)->file();
}

/// The rows of the element list stand in the order of the groups, in every language.
QVector<QString> *SyntaxTab::patterns(const QString &extension, int row) const
{
    SyntaxFile *definition = row < 0 ? nullptr : definitionOf(extension);
    return definition == nullptr ? nullptr : &definition->patterns(SyntaxFile::Group(row));
}

QTextCharFormat *SyntaxTab::format(const QString &extension, int row) const
{
    SyntaxFile *definition = row < 0 ? nullptr : definitionOf(extension);
    return definition == nullptr ? nullptr : &definition->format(SyntaxFile::Group(row));
}

QTextCharFormat *SyntaxTab::currentFormat() const
{
    return format(m_ui.extensionComboBox->currentText(), m_ui.elementsListWidget->currentRow());
}

void SyntaxTab::chooseColor(QTextFormat::Property property)
{
    QTextCharFormat *format = currentFormat();
    if (format == nullptr)
        return;
    const QColor color = QColorDialog::getColor(format->brushProperty(property).color(), this);
    if (color.isValid())
        format->setProperty(property, QBrush(color, Qt::SolidPattern));
}
