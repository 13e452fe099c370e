#include "tools/session.h"

#include "tools/lock.h"

namespace galdren {

Sessions::Sessions() {
    constexpr std::size_t Usual_Depth = 16;  // only what nests deeper allocates
    pairs.reserve(Usual_Depth);
    batches.reserve(Usual_Depth);
}

Sheet* Batch_Sheet(HWND window) {
    const Batch* const batch = Last_Of(The<Sessions>().batches, window);
    return batch ? batch->sheet : nullptr;
}

const Pair* Pair_Of(HWND window) {
    const Pair* const pair = Last_Of(The<Sessions>().pairs, window);
    const Sheet* const batch = pair ? Batch_Sheet(window) : nullptr;
    return batch && pair->sheet != batch ? nullptr : pair;
}

void Forget_Dead_Windows() {
    std::erase_if(The<Sessions>().holds, [](const Hold& hold) {
        return !IsWindow(hold.window) && (!hold.sheet || hold.sheet->users == 0);
    });
}

namespace {

HDC Context_Of(Hold& hold) {
    if (!hold.context) hold.context.emplace(hold.window);
    return hold.context->Get();
}

/// A context that belongs to its window or class is given back each time, for the application has it too; one
/// that could not be had is asked for again.
void Put_Away_Context(Hold& hold) {
    if (hold.context && (!hold.context->Get() || hold.context->Is_Private())) hold.context.reset();
}

}  // namespace

Sheet* Held_Sheet(HWND window, SIZE client, const RECT& covered) {
    Hold* const hold = Last_Of(The<Sessions>().holds, window);
    if (!hold) return nullptr;
    std::unique_ptr<Sheet>& sheet = hold->sheet;
    if (hold->Has_Picture_Of(client) || (sheet && sheet->users > 0)) return sheet.get();
    if (!sheet || !sheet->Has_Room(client)) sheet = Make_Sheet(client);
    if (!sheet) return nullptr;
    const RECT whole = Box_Of(client);
    sheet->Stand_For(window, whole);
    if (!Is_Inside(whole, covered)) sheet->Read({Context_Of(*hold)}, whole);
    Put_Away_Context(*hold);
    return sheet.get();
}

void Show_Now(Sheet& sheet) {
    Hold* const hold = Last_Of(The<Sessions>().holds, sheet.window);
    if (hold && hold->sheet.get() == &sheet) {
        sheet.Show({Context_Of(*hold)});
        Put_Away_Context(*hold);
    } else {
        sheet.Show({Window_Context(sheet.window).Get()});
    }
}

void Show_When_Done(Sheet& sheet) {
    const std::vector<Batch>& batches = The<Sessions>().batches;
    const bool goes_on = std::any_of(batches.begin(), batches.end(),
                                     [&](const Batch& batch) { return batch.sheet == &sheet; });
    if (!goes_on) Show_Now(sheet);
}

}  // namespace galdren
