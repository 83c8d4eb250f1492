// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "persistence/tagscanner.h"

#include <QIODevice>
#include <QStringDecoder>

#include <optional>

/// Stands between an XML file and its parser: hands on the bytes as they are, and ends them with an error before a
/// tag that TagScanner objects to.
class XmlGuard : public QIODevice
{
    Q_OBJECT

public:
    /// @p source is open and at its start, is not owned and must outlive the guard. The guard is open at once.
    explicit XmlGuard(QIODevice &source);

    /// Whether the scanner objected.
    bool hasRefused() const;
    /// Whether the source could not be read to its end.
    bool hasFailed() const;
    /// Whether what the text declares as its encoding is how the scanner has read it. An empty declaration is.
    bool isTrueEncoding(QStringView declared) const;
    bool isSequential() const override;
    bool atEnd() const override;

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

private:
    bool isAcceptable(QByteArrayView bytes);

    QIODevice &m_source;
    TagScanner m_scanner;
    std::optional<QStringDecoder> m_decoder; ///< For a text of characters wider than a byte.
    bool m_refused = false;
    bool m_failed = false;
};
