// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/toolhost.h"

#include <QLabel>
#include <QStringList>
#include <QWidget>

#include <functional>

/// A window for tools under test: notes what it was asked to do.
class FakeToolHost final : public ToolHost
{
public:
    void restorePreviousTool() override
    {
        ++restored;
        if (onRestore)
            onRestore();
    }
    QLabel *statusLabel() const override { return label; }
    QString lastOpenDir() const override { return openDir; }
    void sendFileViaEmail(QString fileName) override { mailed.append(fileName); }
    QWidget *hostWindow() override { return &window; }

    QWidget window; ///< First, so that the label goes before it.
    QLabel *label = new QLabel(&window);
    int restored = 0;
    std::function<void()> onRestore; ///< What else happens when the previous tool comes back.
    QString openDir;
    QStringList mailed;
};
