#include "widgets/text_parts.h"

#include <cstdio>

#include "tools/shading.h"
#include "tools/sharing.h"

namespace galdren {

bool Format_Line(char (&text)[Text_Fields::Line_Room], const char* format, va_list arguments) {
    text[0] = '\0';
    const int length = std::vsnprintf(text, sizeof text, format, arguments);
    if (length < 0) text[0] = '\0';
    return length >= 0;
}

void Free_Texts(char** texts, int first, int end) {
    for (int i = first; i < end; ++i) {
        delete[] texts[i];
        texts[i] = nullptr;
    }
}

namespace {

void Release_Texts(char**& texts, int count) {
    if (Let_Go(Thing::Array, texts)) {
        Free_Texts(texts, 0, count);
        delete[] texts;
    }
    texts = nullptr;
}

}  // namespace

void Release_Lines(Text_Fields& field) {
    Release_Texts(field.Lines, Text_Fields::Most_Lines);
    Release_Texts(field.History, Text_Fields::Most_History);
    Release_Array(field.Line_Width);
    field.Line_Width = nullptr;
}

}  // namespace galdren
