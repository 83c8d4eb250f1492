// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// Goes over XML text without parsing it and objects to what would keep a parser busy beyond all measure: a tag with
/// an absurd number of attributes, each of which a parser compares with all others, and declarations inside a
/// document type, which multiply text and attributes. The text need not be well-formed.
class TagScanner
{
public:
    /// Takes the next bytes of the text, in UTF-8 or any other encoding that has ASCII in it. False from the first
    /// objection on.
    bool feed(QByteArrayView bytes);

private:
    enum State {
        Text,   ///< Between tags.
        Start,  ///< Behind the angle that opens a tag.
        Tag,    ///< Inside a tag, or inside what still looks like one.
        Value,  ///< Inside quotes, inside a tag.
        Passage ///< In a comment, section or instruction, which hold any characters up to their own end.
    };

    void takeInTag(char c);
    void takeInDeclaration(char c);
    void takeInPassage(char c);
    void passOver(QByteArrayView end);

    State m_state = Text;
    bool m_isDeclaration = false; ///< The tag starts with an exclamation or a question mark.
    QByteArray m_start;           ///< The first characters of a declaration.
    int m_values = 0;             ///< Quoted values in the tag.
    char m_quote = 0;             ///< What ends the value.
    QByteArrayView m_end;         ///< What ends the passage.
    qsizetype m_matched = 0;      ///< How much of m_end has been seen.
    bool m_objects = false;
};
