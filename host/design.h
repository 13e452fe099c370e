/// @file
/// Lengths of a control as they were designed, at 96 dots per inch, beside those at which it is painted.
#pragma once

#include <array>
#include <cstddef>

#include "../Galdren_Tools.h"

namespace galdren {

/// Fields of one kind that a control has; the most that any class has are `Most`.
template <class Field, std::size_t Most>
class Fields_Of_Kind {
  public:
    template <class... Others>
    void Add(Others&... others) {
        (Add_One(Field{&others}), ...);
    }
    void Add_One(Field field) { all[count++] = field; }
    std::size_t Count() const { return count; }
    Field operator[](std::size_t number) const { return all[number]; }

  private:
    std::array<Field, Most> all;  // as far as they count
    std::size_t count = 0;
};

/// How far the contents of a control are scrolled: the value of a bar, less the one that stands for not at
/// all, which is 0 for most and follows the place of the control for some.
struct Scrolled {
    float* value = nullptr;
    const float* start = nullptr;
};

/// The fields of a control that depend on the scale.
struct Design_Fields {
    static constexpr std::size_t Most_Lengths = 13;
    static constexpr std::size_t Most_Scrolled = 2;
    static constexpr std::size_t Most_Grabs = 3;
    Fields_Of_Kind<short*, Most_Lengths> lengths;      // in pixels or points; those of the place come first
    Fields_Of_Kind<Scrolled, Most_Scrolled> scrolled;  // in pixels
    Fields_Of_Kind<short*, Most_Grabs> grabs;          // 1 while a bar is held, which `Init` would end
};

/// Adds what a class has beside the lengths of every control: those that an application sets, and those that
/// `Init` makes larger but never smaller. What `Init` makes of others is not among them.
/// @{
inline void Add_Design(Tools&, Design_Fields&) {}
void Add_Design(CheckLists& list, Design_Fields& fields);
void Add_Design(Color_Edit& editor, Design_Fields& fields);
void Add_Design(DirTrees& tree, Design_Fields& fields);
void Add_Design(Hue_Edit& editor, Design_Fields& fields);
void Add_Design(Lists& list, Design_Fields& fields);
void Add_Design(Selects& selector, Design_Fields& fields);
void Add_Design(Sliders& slider, Design_Fields& fields);
void Add_Design(TabItems& tab, Design_Fields& fields);
void Add_Design(Tabs& set, Design_Fields& fields);
void Add_Design(Texts& field, Design_Fields& fields);
void Add_Design(Valuators& valuator, Design_Fields& fields);
/// @}

/// The lengths that every control has.
void Add_Common_Design(Tools& control, Design_Fields& fields);

/// What the fields of a control were designed as, and what was written into them.
class Design {
  public:
    /// Takes what others have written since into the design.
    /// @param scale  at which they have written, in percent; 0 is 100
    void Note(const Design_Fields& fields, unsigned short scale);
    /// Gives the design another place.
    void Set_Place(short x, short y, short width, short height);
    /// Writes the lengths of the design, at a scale. `Init` has to follow.
    void Write(const Design_Fields& fields, unsigned short scale);
    /// Scrolls as far as the design says, at a scale. After `Init`.
    void Scroll(const Design_Fields& fields, unsigned short scale);
    /// Takes what is in the fields for what belongs there: `Init` may change them.
    void Keep(const Design_Fields& fields);

  private:
    template <class Length>
    struct Value {
        Length designed{};
        Length written{};
    };
    std::array<Value<short>, Design_Fields::Most_Lengths> lengths;
    std::array<Value<float>, Design_Fields::Most_Scrolled> scrolled;
};

/// Keeps for a scope what an `Init` would end although the control is the same at another scale or in another
/// theme: a bar that is held, and what stands in a field that does not read.
class Kept_In_Use {
  public:
    /// @param text  the control itself when it is a text field, else null
    Kept_In_Use(const Design_Fields& fields, Texts* text);
    ~Kept_In_Use();
    Kept_In_Use(const Kept_In_Use&) = delete;
    Kept_In_Use& operator=(const Kept_In_Use&) = delete;

  private:
    Design_Fields used;
    Texts* field;
    std::array<short, Design_Fields::Most_Grabs> grabs{};
    std::array<char, Text_Fields::Line_Room> line{};
    short cursor = 0;
};

}  // namespace galdren
