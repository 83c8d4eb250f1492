// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Page;
class QPainter;
class QPrinter;
class QString;

/// Cuts the scene of a page into sheets and paints them on a printer, each with a header above it.
///
/// One scene unit is one device pixel: nothing is scaled to the paper, and what lies right of the printable width is
/// cut off. Which parts are printed is read from the settings at construction.
class SheetPrinter
{
public:
    /// Neither is owned.
    SheetPrinter(Page *page, QPrinter *printer);

    /// Prints all sheets; returns when the last one is painted. A page without anything to print, paper without room
    /// for a line and a printer that cannot be opened give no sheet. The visibility of marks and line numbers, which
    /// paper has of its own, is afterwards what it was before.
    void print();

private:
    void measure();
    double lineStep() const;
    void printHeader(QPainter *painter, int sheet, const QString &dateTime) const;
    void printContents(QPainter *painter, int sheet) const;

    Page *m_page;
    QPrinter *m_printer;

    bool m_withHeader;
    bool m_withFileName;
    bool m_withDate;
    bool m_withPageNumbers;
    bool m_withLineNumbers;
    bool m_withAnnotations;

    // In device pixels.
    double m_pageWidth = 0.0;    ///< Printable width.
    double m_usable = 0.0;       ///< Height of a sheet that is left for the document.
    double m_headerHeight = 0.0; ///< 0 without a header.
    double m_step = 0.0;         ///< Height of the scene that one sheet takes.
    int m_sheetCount = 0;
};
