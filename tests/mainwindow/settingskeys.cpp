// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/settingskeys.h"

const QList<SettingsKey> &settingsKeys()
{
    static const QList<SettingsKey> keys{
        {"General/WindowMaximized", "true", "mainwindow", "mainwindow"},
        {"General/WindowPosition", "QPoint(50, 50)", "mainwindow", "mainwindow"},
        {"General/WindowSize", "QSize(1000, 800)", "mainwindow", "mainwindow"},
        {"General/WindowState", "QByteArray()", "mainwindow", "mainwindow"},
        {"General/ToolBarsState", "QByteArray()", "mainwindow", "mainwindow"},
        {"General/PenColor", "\"#0a0aa2\"", "mainwindow", "mainwindow"},
        {"General/BrushColor", "QString()", "mainwindow", "mainwindow"},
        {"General/RecentFileList", "QStringList()", "mainwindow", "mainwindow"},
        {"General/EmailClient", "\"(empty)\"", "mainwindow settings", "mainwindow settings"},
        {"General/AttachFileByDefault", "false", "mainwindow settings", "settings"},
        {"General/AttachmentFormat", "\"OXN\"", "mainwindow settings", "settings"},
        {"General/AttachmentFormat", "\"PNG\"", "tools", ""},
        {"Other/AppLanguage", "\"default\"", "mainwindow", "mainwindow"},
        {"Other/FullscreenAtStart", "false", "mainwindow settings", "settings"},
        {"Other/ExportToPdfFile", "true", "mainwindow settings", "settings"},
        {"Other/MaxRecentFiles", "5", "mainwindow settings", "settings"},
        {"Other/SynchAnnotations", "true", "documents settings", "settings"},
        {"Other/TabsPosition", "\"Right\"", "mainwindow settings", "settings"},
        {"PageView/DefaultTextColor", "\"black\"", "mainwindow settings", "settings"},
        {"PageView/DefaultBgColor", "\"white\"", "mainwindow settings", "settings"},
        {"PageView/ShowLineNumbers", "true", "mainwindow settings", "settings"},
        {"PageView/DefaultFontFamily", "\"Courier\"", "documents settings", "settings"},
        {"PageView/DefaultFontSize", "10", "documents settings", "settings", "fontSizeSetting"},
        {"Syntax/HighlightByDefault", "true", "mainwindow documents settings", "mainwindow settings"},
        {"Printing/PrintHeader", "true", "documents settings", "settings"},
        {"Printing/PrintFileName", "true", "documents settings", "settings"},
        {"Printing/PrintDate", "true", "documents settings", "settings"},
        {"Printing/PrintPageNumbers", "true", "documents settings", "settings"},
        {"Printing/PrintLineNumbers", "true", "documents settings", "settings"},
        {"Printing/PrintAnnotations", "true", "documents settings", "settings"},
        {"PenTool/LineWidth", "0", "tools settings", "settings", "lineWidth"},
        {"PenTool/Transparency", "60", "tools settings", "settings", "alpha"},
        {"PenTool/Antialiasing", "true", "tools settings", "settings"},
        {"PenTool/Smoothing", "false", "tools settings", "settings"},
        {"PenTool/DrawSelection", "false", "annotations settings", "settings", ""},
        {"MarkerTool/LineWidth", "14", "tools settings", "settings", "lineWidth"},
        {"MarkerTool/Transparency", "60", "tools settings", "settings", "alpha"},
        {"MarkerTool/Antialiasing", "true", "tools settings", "settings"},
        {"MarkerTool/Smoothing", "false", "tools settings", "settings"},
        {"MarkerTool/ShowSelection", "false", "annotations settings", "settings", ""},
        {"TextBoxTool/UseOnce", "false", "tools settings", "settings"},
        {"TextBoxTool/DefaultFontFamily", "\"Courier\"", "tools settings", "settings"},
        {"TextBoxTool/DefaultFontSize", "10", "tools settings", "settings", "fontSizeSetting"},
        {"LineTool/LineWidth", "0", "tools settings", "settings", "lineWidth"},
        {"LineTool/LineStyle", "\"Solid\"", "tools settings", "settings"},
        {"LineTool/Antialiasing", "true", "tools settings", "settings"},
        {"LineTool/ShowSelection", "false", "annotations settings", "settings", "drawSelection"},
        {"ShapeTool/LineWidth", "1", "tools settings", "settings", "lineWidth"},
        {"ShapeTool/LineStyle", "\"Solid\"", "tools settings", "settings"},
        {"ShapeTool/Transparency", "60", "tools settings", "settings", "alpha"},
        {"ShapeTool/Antialiasing", "true", "tools settings", "settings"},
        {"ScreenshotTool/SaveViewToClipboard", "true", "tools settings", "settings"},
        {"ScreenshotTool/SaveViewToFile", "false", "tools settings", "settings"},
        {"ScreenshotTool/SendViewViaEmail", "false", "tools settings", "settings"},
        {"ScreenshotTool/UseOnce", "true", "tools settings", "settings"},
        {"General/WarnRemoveAllAnnotations", "true", "mainwindow settings", "settings", "DontDialog"},
        {"ScreenshotTool/InfoViewInClipboard", "true", "tools settings", "settings", "DontDialog"},
    };
    return keys;
}

const QList<const char *> &keysToCome()
{
    static const QList<const char *> keys{
        "General/EmailClient",
        "General/AttachFileByDefault",
        "General/AttachmentFormat",
        "Other/ExportToPdfFile",
        "Printing/PrintHeader",
        "Printing/PrintFileName",
        "Printing/PrintDate",
        "Printing/PrintPageNumbers",
        "Printing/PrintLineNumbers",
        "Printing/PrintAnnotations",
        "ScreenshotTool/InfoViewInClipboard",
    };
    return keys;
}
