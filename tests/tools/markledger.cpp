// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/markledger.h"

#include "annotations/annotation.h"
#include "documents/page.h"

#include <QGraphicsItem>
#include <QSet>

#include <algorithm>

namespace {

constexpr int numberKey = 1; // of QGraphicsItem::data()

QString joined(QList<int> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    QStringList texts;
    for (const int number : numbers)
        texts.append(QString::number(number));
    return texts.join(QLatin1Char(' '));
}

} // namespace

QList<Annotation *> marksOf(const Page *page)
{
    QList<Annotation *> marks;
    for (QGraphicsItem *item : page->items(Qt::AscendingOrder)) {
        if (auto *mark = dynamic_cast<Annotation *>(item))
            marks.append(mark);
    }
    return marks;
}

void MarkLedger::addPage(Page *page)
{
    m_pages.append(page);
}

int MarkLedger::enter(Annotation *mark)
{
    auto *item = dynamic_cast<QGraphicsItem *>(mark);
    item->setData(numberKey, ++m_lastNumber);
    m_marks.insert(m_lastNumber, MarkPointer(item));
    return m_lastNumber;
}

int MarkLedger::numberOf(const Annotation *mark)
{
    const QVariant number = dynamic_cast<const QGraphicsItem *>(mark)->data(numberKey);
    return number.isValid() ? number.toInt() : -1;
}

QList<int> MarkLedger::numbersOf(const QList<Annotation *> &marks)
{
    QList<int> numbers;
    for (const Annotation *mark : marks)
        numbers.append(numberOf(mark));
    return numbers;
}

void MarkLedger::found(Page *page, int mark)
{
    m_places.insert(mark, page);
}

void MarkLedger::push(Page *page, StepKind kind, const QList<int> &marks)
{
    Steps &steps = m_steps[page];
    steps.list.resize(steps.done);
    steps.list.append({kind, marks});
    ++steps.done;
    apply(page, steps.list.constLast(), true);
}

void MarkLedger::undo(Page *page)
{
    Steps &steps = m_steps[page];
    if (steps.done > 0)
        apply(page, steps.list.at(--steps.done), false);
}

void MarkLedger::redo(Page *page)
{
    Steps &steps = m_steps[page];
    if (steps.done < steps.list.size())
        apply(page, steps.list.at(steps.done++), true);
}

void MarkLedger::apply(Page *page, const Step &step, bool forward)
{
    for (const int mark : step.marks) {
        if ((step.kind == Put) == forward)
            m_places.insert(mark, page);
        else if (m_places.value(mark) == page)
            m_places.remove(mark);
    }
}

void MarkLedger::clearSteps(Page *page)
{
    m_steps.remove(page);
}

void MarkLedger::removeAll(const Page *page)
{
    m_places.removeIf([page](const auto &place) { return place.value() == page; });
}

bool MarkLedger::isReachable(int mark) const
{
    const auto holds = [mark](const Step &step) { return step.marks.contains(mark); };
    return m_places.contains(mark) || m_clipboard.contains(mark) ||
           std::any_of(m_steps.cbegin(), m_steps.cend(), [&holds](const Steps &steps) {
               return std::any_of(steps.list.cbegin(), steps.list.cend(), holds);
           });
}

QString MarkLedger::differenceOn(const Page *page) const
{
    const QString expected = joined(m_places.keys(page));
    const QString actual = joined(numbersOf(marksOf(page)));
    if (actual == expected)
        return {};
    return QStringLiteral("page %1 holds the marks %2 instead of %3").arg(m_pages.indexOf(page)).arg(actual, expected);
}

QString MarkLedger::firstDifference(const QList<Annotation *> &clipboard)
{
    for (const Page *page : std::as_const(m_pages)) {
        if (const QString difference = differenceOn(page); !difference.isEmpty())
            return difference;
    }
    if (numbersOf(clipboard) != m_clipboard)
        return QStringLiteral("the clipboard holds %1 instead of %2")
            .arg(joined(numbersOf(clipboard)), joined(m_clipboard));
    for (auto mark = m_marks.begin(); mark != m_marks.end();) {
        const bool lives = mark.value().item();
        if (lives != isReachable(mark.key()))
            return QStringLiteral("mark %1 %2").arg(mark.key()).arg(lives ? "has leaked" : "has died too early");
        mark = lives ? std::next(mark) : m_marks.erase(mark);
    }
    return {};
}
