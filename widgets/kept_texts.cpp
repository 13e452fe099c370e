#include "widgets/kept_texts.h"

#include "tools/sharing.h"

namespace galdren {

bool Kept_Texts::Make() const { return Make_Array(texts, room); }

void Kept_Texts::Begin() const { Bring_Oldest(texts, room); }

void Kept_Texts::Put(std::string_view text) const {
    delete[] texts[0];
    texts[0] = Duplicate(text);
}

const char* Kept_Texts::At(int index) const {
    return texts && index >= 0 && index < room ? texts[index] : nullptr;
}

int Kept_Texts::Count() const {
    int count = texts ? room : 0;
    while (count > 0 && !texts[count - 1])
        --count;
    return count;
}

void Kept_Texts::Release() const {
    if (Let_Go(Thing::Array, texts)) {
        std::for_each(texts, texts + room, [](const char* text) { delete[] text; });
        delete[] texts;
    }
    texts = nullptr;
}

}  // namespace galdren
