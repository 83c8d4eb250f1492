// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <QStringView>
#include <QUtf8StringView>

/// Writes nested XML elements. An element's attributes come before its children and its text.
class ElementWriter
{
public:
    ElementWriter() = default;
    ElementWriter(const ElementWriter &) = delete;
    ElementWriter &operator=(const ElementWriter &) = delete;
    virtual ~ElementWriter();

    /// Opens an element inside the one that is open.
    virtual void startElement(QLatin1String tag) = 0;
    /// Closes the element opened last.
    virtual void endElement() = 0;

    /// Writes attributeText() of @p value.
    void writeAttribute(QLatin1String name, const QString &value);
    void writeAttribute(QLatin1String name, int value);
    /// With 17 significant digits, so that every value comes back as it was, and independent of the locale.
    void writeAttribute(QLatin1String name, double value);
    void writeYesNo(QLatin1String name, bool value);

    /// @p value with U+FFFD for the characters that XML forbids: an attribute has no way to hold them.
    static QString attributeText(const QString &value);

    /// Writes @p text into the open element so that it reads back exactly: a character that XML forbids becomes
    /// an empty element with its code.
    void writeText(QStringView text);
    /// The same as CDATA sections; there is always at least one, and none contains its own end mark.
    void writeCData(QStringView text);

protected:
    virtual void addAttribute(QLatin1String name, QUtf8StringView value) = 0;
    virtual void addText(QStringView text) = 0;
    virtual void addCData(QStringView text) = 0;

private:
    void writeCharacter(QChar character);
    void writeCDataPiece(QStringView piece);
};
