// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/savedcopy.h"

#include "documents/page.h"
#include "support/files.h"
#include "tools/markledger.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

namespace {

/// What a file says, element by element.
struct Token
{
    QXmlStreamReader::TokenType type;
    QString name; ///< Or the text.
    QXmlStreamAttributes attributes;
};

QList<Token> tokensOf(const QByteArray &bytes)
{
    QList<Token> tokens;
    QXmlStreamReader xml(bytes);
    while (!xml.atEnd()) {
        const auto type = xml.readNext();
        tokens.append({type, xml.isCharacters() ? xml.text().toString() : xml.name().toString(), xml.attributes()});
    }
    if (xml.hasError())
        tokens.append({QXmlStreamReader::Invalid, xml.errorString(), {}});
    return tokens;
}

bool isSameValue(QStringView a, QStringView b)
{
    constexpr double singlePrecision = 1e-6;
    bool numbers[2] = {};
    const double first = a.toDouble(&numbers[0]);
    const double second = b.toDouble(&numbers[1]);
    if (!numbers[0] || !numbers[1])
        return a == b;
    return std::abs(first - second) <= singlePrecision * std::max(1.0, std::abs(first));
}

bool isSame(const Token &a, const Token &b)
{
    return a.type == b.type && a.name == b.name &&
           std::equal(a.attributes.cbegin(), a.attributes.cend(), b.attributes.cbegin(), b.attributes.cend(),
                      [](const QXmlStreamAttribute &x, const QXmlStreamAttribute &y) {
                          return x.name() == y.name() && isSameValue(x.value(), y.value());
                      });
}

QString differenceOf(const QByteArray &first, const QByteArray &second)
{
    const QList<Token> a = tokensOf(first);
    const QList<Token> b = tokensOf(second);
    const auto [x, y] = std::mismatch(a.cbegin(), a.cend(), b.cbegin(), b.cend(), isSame);
    if (x == a.cend() && y == b.cend())
        return {};
    return QStringLiteral("the opened copy differs at part %1, \"%2\"")
        .arg(x - a.cbegin())
        .arg(x == a.cend() ? QStringLiteral("end") : x->name);
}

} // namespace

QString differenceAfterSaving(Page *page, const QString &path)
{
    if (!page->saveDocument(path, true))
        return QStringLiteral("it cannot be saved");
    const QByteArray saved = bytesIn(path);
    if (!page->saveDocument(path, true) || bytesIn(path) != saved)
        return QStringLiteral("a second save gives other bytes");
    Page copy(nullptr);
    if (!copy.loadFile(path))
        return QStringLiteral("it cannot be opened again");
    if (copy.documentKind() != page->documentKind() || copy.plainText() != page->plainText())
        return QStringLiteral("the opened copy has another text");
    if (marksOf(&copy).size() != marksOf(page).size())
        return QStringLiteral("%1 marks were saved, %2 came back").arg(marksOf(page).size()).arg(marksOf(&copy).size());
    if (!copy.saveDocument(path, true))
        return QStringLiteral("the opened copy cannot be saved");
    const QByteArray savedCopy = bytesIn(path);
    if (const QString difference = differenceOf(saved, savedCopy); !difference.isEmpty())
        return difference;
    Page again(nullptr);
    if (!again.loadFile(path) || !again.saveDocument(path, true) || bytesIn(path) != savedCopy)
        return QStringLiteral("what was read once gives other bytes");
    return {};
}
