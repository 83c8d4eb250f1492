// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QSet>
#include <QTranslator>

/// A text that was looked up: its context and its source.
using LookedUpText = std::pair<QString, QString>;

/// Notes every text that is looked up while it lives, and leaves the translating to the translators installed before.
class TextRecorder : public QTranslator
{
public:
    TextRecorder() { QCoreApplication::installTranslator(this); }
    ~TextRecorder() override { QCoreApplication::removeTranslator(this); }
    TextRecorder(const TextRecorder &) = delete;
    TextRecorder &operator=(const TextRecorder &) = delete;

    const QSet<LookedUpText> &texts() const { return m_texts; }
    bool has(const char *context, const char *source) const
    {
        return m_texts.contains(LookedUpText(QString::fromUtf8(context), QString::fromUtf8(source)));
    }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        m_texts.insert({QString::fromUtf8(context), QString::fromUtf8(source)});
        return {};
    }

private:
    mutable QSet<LookedUpText> m_texts;
};
