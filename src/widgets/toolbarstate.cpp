// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/toolbarstate.h"

#include <QDataStream>
#include <QIODevice>

namespace {

constexpr qint32 stateMarker = 255;
constexpr qint8 barsMarker = -2;
constexpr qint8 customBarsMarker = -3;
constexpr qint64 smallestString = 4; ///< bytes; the length alone
constexpr auto stateStreamVersion = QDataStream::Qt_4_6;

/// Null and empty strings have different bytes; a name that is missing is written as an empty one.
void writeString(QDataStream &out, const QString &text)
{
    out << (text.isNull() ? QStringLiteral("") : text);
}

void writeBar(QDataStream &out, const ToolBarState::Bar &bar, bool custom)
{
    writeString(out, bar.name);
    if (custom)
        writeString(out, bar.title);
    out << qint32(bar.actions.size());
    for (const QString &action : bar.actions)
        writeString(out, action);
}

void writeBars(QDataStream &out, qint8 marker, const QList<ToolBarState::Bar> &bars)
{
    out << marker << qint32(bars.size());
    for (const ToolBarState::Bar &bar : bars)
        writeBar(out, bar, marker == customBarsMarker);
}

/// Reads a number of things of which each takes @p smallest bytes or more; -1 if there cannot be so many.
qint32 readCount(QDataStream &in, qint64 smallest)
{
    qint32 count = -1;
    in >> count;
    const bool possible = in.status() == QDataStream::Ok && count <= in.device()->bytesAvailable() / smallest;
    return possible ? count : -1;
}

bool readBar(QDataStream &in, ToolBarState::Bar &bar, bool custom)
{
    in >> bar.name;
    if (custom)
        in >> bar.title;
    const qint32 count = readCount(in, smallestString);
    for (qint32 i = 0; i < count; ++i) {
        QString action;
        in >> action;
        bar.actions.append(action);
    }
    return count >= 0 && in.status() == QDataStream::Ok;
}

bool readBars(QDataStream &in, qint8 marker, QList<ToolBarState::Bar> &bars)
{
    qint8 found = 0;
    in >> found;
    const bool custom = marker == customBarsMarker;
    const qint32 count = found == marker ? readCount(in, custom ? 3 * smallestString : 2 * smallestString) : -1;
    for (qint32 i = 0; i < count; ++i) {
        ToolBarState::Bar bar;
        if (!readBar(in, bar, custom))
            return false;
        bars.append(bar);
    }
    return count >= 0;
}

} // namespace

QByteArray ToolBarState::toBytes(int version) const
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(stateStreamVersion);
    out << stateMarker << qint32(version);
    writeBars(out, barsMarker, bars);
    writeBars(out, customBarsMarker, customBars);
    return bytes;
}

std::optional<ToolBarState> ToolBarState::fromBytes(const QByteArray &bytes, int version)
{
    QDataStream in(bytes);
    in.setVersion(stateStreamVersion);
    qint32 marker = 0;
    qint32 storedVersion = 0;
    in >> marker >> storedVersion;
    if (in.status() != QDataStream::Ok || marker != stateMarker || storedVersion != version)
        return std::nullopt;
    ToolBarState state;
    if (!readBars(in, barsMarker, state.bars) || !readBars(in, customBarsMarker, state.customBars))
        return std::nullopt;
    return state;
}
