// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>

/// Every name that stands in a document file, in one place.
namespace XmlNames {

/// The four attributes that hold one colour.
struct Color
{
    QLatin1String red, green, blue, alpha;
};

// The frame of the file.
inline constexpr QLatin1String documentType("Zettelwerk_2008");
inline constexpr QLatin1String root("Zettelwerk-xml");
inline constexpr QLatin1String fileVersion("zettel_werk_type");
inline constexpr QLatin1String fileType("file_type");
inline constexpr QLatin1String textContents("text_contents");
inline constexpr QLatin1String imageContents("img_contents");
inline constexpr QLatin1String imageLink("img_file_link");
/// A character that XML cannot hold, by its UTF-16 code.
inline constexpr QLatin1String character("char");
inline constexpr QLatin1String characterCode("code");

// The elements of the marks.
inline constexpr QLatin1String penLine("pen_line");
inline constexpr QLatin1String markerLine("marker_line");
inline constexpr QLatin1String bracket("bracket");
inline constexpr QLatin1String line("line");
inline constexpr QLatin1String ellipse("ellipse");
inline constexpr QLatin1String rectangle("rectangle");
inline constexpr QLatin1String textBox("text_box");
inline constexpr QLatin1String activeTag("active_tag");

// What marks share.
inline constexpr QLatin1String positionX("pos_x");
inline constexpr QLatin1String positionY("pos_y");
inline constexpr QLatin1String antialias("antialias");
inline constexpr QLatin1String penWidth("w");
inline constexpr QLatin1String penStyle("pen_style");
inline constexpr QLatin1String style("style");
inline constexpr QLatin1String yes("yes");
inline constexpr QLatin1String no("no");
inline constexpr Color plainColor{QLatin1String("red"), QLatin1String("green"), QLatin1String("blue"),
                                  QLatin1String("alpha")};
inline constexpr Color penColor{QLatin1String("p_red"), QLatin1String("p_green"), QLatin1String("p_blue"),
                                QLatin1String("p_alpha")};
inline constexpr Color brushColor{QLatin1String("b_red"), QLatin1String("b_green"), QLatin1String("b_blue"),
                                  QLatin1String("b_alpha")};

// Active tags.
inline constexpr QLatin1String category("category");
inline constexpr Color textColor{QLatin1String("t_red"), QLatin1String("t_green"), QLatin1String("t_blue"),
                                 QLatin1String("t_alpha")};
inline constexpr QLatin1String descriptionFont("desc_font");
inline constexpr QLatin1String descriptionFontSize("desc_font_size");
inline constexpr QLatin1String author("author");
inline constexpr QLatin1String authorFont("author_font");
inline constexpr QLatin1String authorFontSize("author_font_size");
inline constexpr QLatin1String showDate("show_date");
inline constexpr QLatin1String date("date");
inline constexpr QLatin1String time("time");
inline constexpr QLatin1String dateFont("date_font");
inline constexpr QLatin1String dateFontSize("date_font_size");

// Geometry.
inline constexpr QLatin1String point("p");
inline constexpr QLatin1String x("x");
inline constexpr QLatin1String y("y");
inline constexpr QLatin1String width("width");
inline constexpr QLatin1String height("height");
inline constexpr QLatin1String x1("x1");
inline constexpr QLatin1String y1("y1");
inline constexpr QLatin1String x2("x2");
inline constexpr QLatin1String y2("y2");
inline constexpr QLatin1String rounded("rounded");

// Text.
inline constexpr QLatin1String fontFamily("font_family");
inline constexpr QLatin1String fontSize("font_size");
inline constexpr QLatin1String text("txt");
inline constexpr QLatin1String description("desc");

} // namespace XmlNames
