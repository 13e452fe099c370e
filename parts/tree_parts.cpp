// Description of directory browsers.
#include <algorithm>

#include "parts/classes.h"
#include "parts/describe.h"

using namespace galdren;

namespace {

/// The rows, and below them the button that reads the directories again.
class Tree_Parts final : public Parts_For<DirTrees> {
  public:
    const char* Name() const override { return "DirTrees"; }

    int Count(const Tools& control) const override { return Rows(Own(control)) + 1; }

    Part Describe(const Tools& control, int part) const override {
        const DirTrees& tree = Own(control);
        if (part == Rows(tree)) return Button_Of(tree, tree.Refresh, Part_Role::Button, Part_Use::Press);
        return Has_Row(tree, part) ? Row(tree, part) : All(tree);
    }

    int At(const Tools& control, POINT place) const override {
        const DirTrees& tree = Own(control);
        const RECT button = Describe(tree, Rows(tree)).area;
        if (PtInRect(&button, place)) return Rows(tree);
        const int row = tree.Row_At(place);
        return Has_Row(tree, row) ? row : Whole;
    }

    int First(const Tools& control) const override {
        const DirTrees& tree = Own(control);
        for (int row = 0; row < Rows(tree); ++row) {
            if (tree.Row[row].node == tree.Current) return row;
        }
        return 0;
    }

    /// Left leads to the parent, Right to the first child.
    int Next(const Tools& control, int part, Part_Move move) const override {
        const DirTrees& tree = Own(control);
        if (!Has_Row(tree, part)) return Class_Parts::Next(control, part, move);
        switch (move) {
            case Part_Move::Left:
                return Has_Row(tree, tree.Row[part].parent) ? tree.Row[part].parent : part;
            case Part_Move::Right:
                return Has_Row(tree, part + 1) && tree.Row[part + 1].parent == part ? part + 1 : part;
            case Part_Move::Page_Down:
            case Part_Move::End:
                return std::min(Class_Parts::Next(control, part, move), Rows(tree) - 1);
            default:
                return Class_Parts::Next(control, part, move);
        }
    }

    void Bring_Into_View(Tools& control, int part) const override { Own(control).Bring_Into_View(part); }

    /// Right opens a branch and Left closes it.
    bool Step(Tools& control, int part, Part_Move move) const override {
        DirTrees& tree = Own(control);
        const bool opens = move == Part_Move::Right;
        if (!Is_Active(tree) || !Has_Row(tree, part) || !(opens || move == Part_Move::Left)) return false;
        return tree.Open_Row(part, opens);
    }

    void For_Members(Tools& control, const std::function<void(Tools&)>& visit) const override {
        DirTrees& tree = Own(control);
        for (Tools* member :
             {static_cast<Tools*>(&tree.Frame), static_cast<Tools*>(&tree.Tree_Box),
              static_cast<Tools*>(&tree.List_Box), static_cast<Tools*>(&tree.Refresh),
              static_cast<Tools*>(&tree.Vertical_Bar), static_cast<Tools*>(&tree.Horizontal_Bar)})
            visit(*member);
    }

  private:
    static int Rows(const DirTrees& tree) { return tree.Row ? std::max(tree.Nb_Row, 0) : 0; }
    static bool Has_Row(const DirTrees& tree, int row) { return row >= 0 && row < Rows(tree); }

    static Part All(const DirTrees& tree) {
        Part part = Whole_Of(tree, Part_Role::Tree, Part_Use::None);
        if (tree.Current) part.value = Caption(tree.Current->path);
        return part;
    }

    static Part Row(const DirTrees& tree, int index) {
        const Dir_Row& row = tree.Row[index];
        Part part;
        part.role = Part_Role::Tree_Row;
        part.use = Part_Use::Choose;
        part.name = Caption(row.node->name);
        part.level = row.depth + 1;
        Put(part, tree, tree.Row_Place(index));
        Note(part, PART_PASSIVE, Has_Bit(tree, FLAG_PASSIVE) || (row.node->flags & DIR_NO_ACCESS));
        Note(part, PART_CHOSEN, row.node == tree.Current);
        Note(part, PART_OPEN, row.node->flags & DIR_OPEN);
        Note(part, PART_CLOSED, row.node->flags & DIR_CLOSED);
        return part;
    }

    /// One row of a page stays in view.
    int Page(const Tools& control) const override {
        const DirTrees& tree = Own(control);
        return std::max(tree.List_Box.Height / tree.Row_Height() - 1, 1);
    }
};

constexpr Tree_Parts The_Tree_Parts;

}  // namespace

const Class_Parts& Parts_Of(const DirTrees*) { return The_Tree_Parts; }
