// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/xmlguard.h"

XmlGuard::XmlGuard(QIODevice &source) : m_source(source)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    // Found out as parsers do it. What a text declares of itself cannot make its characters wider: the declaration
    // has been read by then.
    const auto encoding = QStringConverter::encodingForData(source.peek(4), u'<');
    if (encoding && *encoding != QStringConverter::Utf8)
        m_decoder.emplace(*encoding);
}

bool XmlGuard::hasRefused() const
{
    return m_refused;
}

bool XmlGuard::isSequential() const
{
    return true;
}

bool XmlGuard::atEnd() const
{
    return m_refused || m_source.atEnd();
}

qint64 XmlGuard::readData(char *data, qint64 maxSize)
{
    const qint64 size = m_source.read(data, maxSize);
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
