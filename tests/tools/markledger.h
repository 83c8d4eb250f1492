// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "documents/markpointer.h"

#include <QHash>
#include <QList>
#include <QString>

class Annotation;
class Page;

/// What should be where, by the rules of the commands alone: which marks lie on which page, on the clipboard and in
/// which undo step. Held against the pages after each step of a random sequence.
///
/// Marks are known by a number that goes with the object; pages by their address, and they must outlive the ledger.
class MarkLedger
{
public:
    enum StepKind { Put, Cut };

    void addPage(Page *page);
    qsizetype pageCount() const { return m_pages.size(); }
    /// Gives a mark that was not known yet a number.
    int enter(Annotation *mark);
    /// The number of @p mark; -1 if it was never entered.
    static int numberOf(const Annotation *mark);
    static QList<int> numbersOf(const QList<Annotation *> &marks);

    /// A mark that lies on @p page without having come there by an undoable step.
    void found(Page *page, int mark);
    /// A step is done for the first time; what had been undone is forgotten.
    void push(Page *page, StepKind kind, const QList<int> &marks);
    void undo(Page *page);
    void redo(Page *page);
    void clearSteps(Page *page);
    void removeAll(const Page *page);
    void setClipboard(const QList<int> &marks) { m_clipboard = marks; }
    const QList<int> &clipboard() const { return m_clipboard; }

    /// Steps of @p page that can be undone and all its steps.
    qsizetype doneSteps(Page *page) const { return m_steps.value(page).done; }
    qsizetype allSteps(Page *page) const { return m_steps.value(page).list.size(); }

    /// Empty if the pages and the clipboard hold what they should, and of all marks entered so far just those live
    /// that somebody can still reach. Otherwise what is wrong first.
    QString firstDifference(const QList<Annotation *> &clipboard);

private:
    struct Step
    {
        StepKind kind;
        QList<int> marks;
    };
    struct Steps
    {
        QList<Step> list;
        qsizetype done = 0;
    };

    void apply(Page *page, const Step &step, bool forward);
    bool isReachable(int mark) const;
    QString differenceOn(const Page *page) const;

    QList<Page *> m_pages;
    QHash<int, MarkPointer> m_marks;
    QHash<int, const Page *> m_places; ///< Only of marks that lie on a page.
    QHash<Page *, Steps> m_steps;
    QList<int> m_clipboard;
    int m_lastNumber = 0;
};

/// The marks on @p page, bottom first.
QList<Annotation *> marksOf(const Page *page);
