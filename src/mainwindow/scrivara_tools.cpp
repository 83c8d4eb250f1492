// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/scrivara.h"

#include "app/eventlog.h"
#include "documents/pageview.h"
#include "mainwindow/actiontables.h"
#include "mainwindow/processtools.h"
#include "tools/brackettool.h"
#include "tools/erasertool.h"
#include "tools/linetool.h"
#include "tools/markertool.h"
#include "tools/pentool.h"
#include "tools/screenshottool.h"
#include "tools/shapetool.h"
#include "tools/textboxtool.h"
#include "widgets/qtcolorpicker.h"

#include <QSettings>

namespace {

template<typename T> T *kept(T *tool)
{
    keepForProcess(tool);
    return tool;
}

constexpr QColor penColors[]{{10, 10, 10}, {255, 10, 10}, {10, 255, 10}, {10, 10, 255}};
constexpr QColor markerColors[]{{255, 10, 10}, {10, 255, 10}, {10, 10, 255}, {255, 255, 10}};

template<std::size_t N> bool isIndexOf(const std::array<ActionTables::Member, N> & /*table*/, int id)
{
    return id >= 0 && static_cast<std::size_t>(id) < N;
}

} // namespace

void Scrivara::createTools()
{
    TRACE_ENTER_ON(logInfo);
    const QString penColor = QSettings().value(QStringLiteral("General/PenColor"), "#0a0aa2").toString();
    m_defaultPen = kept(new PenTool(QColor(penColor), 1, true));
    createPredefinedTools();
    m_eraser = kept(new EraserTool);
    m_textBoxTool = kept(new TextBoxTool(this, true));
    for (int id = 0; auto &tool : m_lineTools)
        tool = kept(new LineTool(id++));
    for (int id = 0; auto &tool : m_shapeTools)
        tool = kept(new ShapeTool(id++, true));
    for (int id = 0; auto &tool : m_bracketTools)
        tool = kept(new BracketTool(id++));
    m_screenShotTool = kept(new ScreenShotTool(this));

    m_currentTool = m_defaultPen;
    m_currentToolAction = actionToolPen;
    m_previousToolAction = actionToolPen;
    TRACE_LEAVE_ON(logInfo);
}

void Scrivara::createPredefinedTools()
{
    std::size_t id = 0;
    for (const int width : {1, 4}) {
        for (const QColor &color : penColors) {
            auto *pen = new PenTool(color, width, false);
            // The window itself deletes this one.
            m_predefinedTools[id] = id == thinRedPen ? pen : kept(pen);
            ++id;
        }
    }
    m_defaultMarker = kept(new MarkerTool(Qt::blue, true));
    for (const QColor &color : markerColors)
        m_predefinedTools[id++] = kept(new MarkerTool(color, false));
}

void Scrivara::showToolCursor()
{
    if (PageView *view = currentView())
        view->setCursor(m_currentTool->makeCursor());
}

void Scrivara::setMode(DocumentMode mode)
{
    if (mode != m_mode)
        m_currentTool->abandonGesture();
    m_mode = mode;
}

void Scrivara::setCurrentTool(Tool *tool, QAction *action)
{
    if (tool != m_currentTool)
        m_currentTool->abandonGesture();
    m_currentTool = tool;
    m_currentToolAction = action;
}

void Scrivara::selectTool(Tool *tool, QAction *action)
{
    m_previousToolAction = m_currentToolAction;
    setCurrentTool(tool, action);
}

void Scrivara::setTextMode(bool text)
{
    if (!text)
        return;
    TRACE_ENTER;
    (logTrace << "Set text mode").eol(0);
    setMode(TextMode);
    applyViewCursor();
    TRACE_LEAVE;
}

void Scrivara::setTransformMode(bool transform)
{
    if (!transform)
        return;
    TRACE_ENTER;
    (logTrace << "Set transform mode").eol(0);
    setMode(TransformMode);
    applyViewCursor();
    TRACE_LEAVE;
}

void Scrivara::selectDrawingTool(DrawingTool *tool, QAction *action)
{
    setMode(ToolMode);
    tool->updateSettings();
    tool->setPenColor(m_lineColorPicker->currentColor());
    selectTool(tool, action);
    showToolCursor();
}

void Scrivara::usePen(bool use)
{
    if (!use)
        return;
    TRACE_ENTER;
    selectDrawingTool(m_defaultPen, actionToolPen);
    TRACE_LEAVE;
}

void Scrivara::useMarker(bool use)
{
    if (!use)
        return;
    TRACE_ENTER;
    selectDrawingTool(m_defaultMarker, actionToolMarker);
    TRACE_LEAVE;
}

void Scrivara::useTextBox(bool use)
{
    if (!use)
        return;
    TRACE_ENTER;
    (logTrace << "Use text box").eol(0);
    selectDrawingTool(m_textBoxTool, actionTextBox);
    TRACE_LEAVE;
}

void Scrivara::useEraser(bool use)
{
    if (!use)
        return;
    TRACE_ENTER;
    (logTrace << "Using eraser").eol(0);
    selectTool(m_eraser, actionToolEraser);
    setMode(ToolMode);
    showToolCursor();
    TRACE_LEAVE;
}

void Scrivara::useScreenShot(bool use)
{
    if (!use)
        return;
    TRACE_ENTER;
    (logTrace << "Screenshot tool").eol(0);
    setMode(ToolMode);
    m_screenShotTool->updateSettings();
    selectTool(m_screenShotTool, actionTakeScreenShot);
    showToolCursor();
    TRACE_LEAVE;
}

void Scrivara::useLine(int styleId)
{
    TRACE_ENTER;
    (logTrace << "Use line, style Id: " << static_cast<double>(styleId)).eol(0);
    m_previousToolAction = m_currentToolAction;
    setMode(ToolMode);
    if (isIndexOf(ActionTables::lines, styleId)) {
        const auto id = static_cast<std::size_t>(styleId);
        setCurrentTool(m_lineTools[id], this->*ActionTables::lines[id]);
    }
    applyToolColors(false);
    TRACE_LEAVE;
}

void Scrivara::useBracket(int styleId)
{
    if (!isIndexOf(ActionTables::brackets, styleId))
        return;
    TRACE_ENTER;
    (logTrace << "Use bracket, Id: " << static_cast<double>(styleId)).eol(0);
    const auto id = static_cast<std::size_t>(styleId);
    selectTool(m_bracketTools[id], this->*ActionTables::brackets[id]);
    setMode(ToolMode);
    applyToolColors(false);
    TRACE_LEAVE;
}

void Scrivara::useShape(int styleId)
{
    TRACE_ENTER;
    (logTrace << "Using shape, id: " << static_cast<double>(styleId)).eol(0);
    m_previousToolAction = m_currentToolAction;
    setMode(ToolMode);
    if (isIndexOf(ActionTables::shapes, styleId)) {
        const auto id = static_cast<std::size_t>(styleId);
        setCurrentTool(m_shapeTools[id], this->*ActionTables::shapes[id]);
    }
    applyToolColors(true);
    TRACE_LEAVE;
}

void Scrivara::applyToolColors(bool brushToo)
{
    m_currentTool->updateSettings();
    if (auto *tool = dynamic_cast<DrawingTool *>(m_currentTool)) {
        tool->setPenColor(m_lineColorPicker->currentColor());
        if (brushToo)
            tool->setBrushColor(m_fillColorPicker->currentColor());
    }
    showToolCursor();
}

void Scrivara::usePredefinedTool(int toolId)
{
    TRACE_ENTER;
    (logTrace << "Use predefined tool, Id: " << static_cast<double>(toolId)).eol(0);
    m_previousToolAction = m_currentToolAction;
    setMode(ToolMode);
    if (isIndexOf(ActionTables::predefinedTools, toolId)) {
        const auto id = static_cast<std::size_t>(toolId);
        setCurrentTool(m_predefinedTools[id], this->*ActionTables::predefinedTools[id]);
        // The picker shows the colour in use.
        m_lineColorPicker->setCurrentColor(m_predefinedTools[id]->pen().color());
    }
    showToolCursor();
    TRACE_LEAVE;
}

void Scrivara::lineColor(QColor color)
{
    auto *tool = dynamic_cast<DrawingTool *>(m_currentTool);
    if (tool == nullptr)
        return;
    TRACE_ENTER;
    tool->setPenColor(color);
    showToolCursor();
    TRACE_LEAVE;
}

void Scrivara::fillColor(QColor color)
{
    auto *tool = dynamic_cast<DrawingTool *>(m_currentTool);
    if (tool == nullptr)
        return;
    TRACE_ENTER;
    tool->setBrushColor(color);
    showToolCursor();
    TRACE_LEAVE;
}

void Scrivara::restorePreviousTool()
{
    TRACE_ENTER;
    m_previousToolAction->activate(QAction::Trigger);
    updateCurrentState();
    TRACE_LEAVE;
}
