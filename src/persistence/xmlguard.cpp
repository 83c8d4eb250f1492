// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/xmlguard.h"

#include <algorithm>

XmlGuard::XmlGuard(QIODevice &source) : m_source(source)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    // Found out as parsers do it. A declaration in the text may name another one: see isTrueEncoding().
    const auto encoding = QStringConverter::encodingForData(source.peek(4), u'<');
    if (encoding && *encoding != QStringConverter::Utf8)
        m_decoder.emplace(*encoding);
}

bool XmlGuard::hasRefused() const
{
    return m_refused;
}

bool XmlGuard::hasFailed() const
{
    return m_failed;
}

bool XmlGuard::isTrueEncoding(QStringView declared) const
{
    // Without a decoder the scanner looks for the tags among bytes, where these encodings have ASCII.
    const QStringList wide{QStringLiteral("utf-16"), QStringLiteral("utf-32")};
    const QStringList narrow{QStringLiteral("utf-8"), QStringLiteral("us-ascii"), QStringLiteral("iso-8859-"),
                             QStringLiteral("windows-125")};
    const QStringList &possible = m_decoder ? wide : narrow;
    return declared.isEmpty() || std::any_of(possible.begin(), possible.end(), [declared](const QString &name) {
               return declared.startsWith(name, Qt::CaseInsensitive);
           });
}

bool XmlGuard::isSequential() const
{
    return true;
}

bool XmlGuard::atEnd() const
{
    return m_refused || m_failed || m_source.atEnd();
}

qint64 XmlGuard::readData(char *data, qint64 maxSize)
{
    const qint64 size = m_source.read(data, maxSize);
    m_failed = m_failed || size < 0;
    if (size > 0 && !isAcceptable(QByteArrayView(data, size)))
        m_refused = true;
    return m_refused ? -1 : size;
}

bool XmlGuard::isAcceptable(QByteArrayView bytes)
{
    if (!m_decoder)
        return m_scanner.feed(bytes);
    const QString text = (*m_decoder)(bytes);
    return m_scanner.feed(text.toUtf8());
}

qint64 XmlGuard::writeData(const char * /*data*/, qint64 /*maxSize*/)
{
    return -1;
}
