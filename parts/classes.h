/// @file
/// The description of each class of controls. The one of a control is chosen by the type of its pointer: a
/// class that an application derives has that of the class it comes from.
#pragma once

#include "../dirtree/dirtree.h"
#include "../widgets/box.h"
#include "../widgets/button.h"
#include "../widgets/checklist.h"
#include "../widgets/color_edit.h"
#include "../widgets/hue_edit.h"
#include "../widgets/label.h"
#include "../widgets/list.h"
#include "../widgets/selector.h"
#include "../widgets/slider.h"
#include "../widgets/tabitem.h"
#include "../widgets/tabs.h"
#include "../widgets/text.h"
#include "../widgets/valuator.h"
#include "part.h"

/// @{
/// How the controls of a class are described. The pointer only tells the class; it may be null.
const Class_Parts& Parts_Of(const Tools* control);
const Class_Parts& Parts_Of(const Boxs* control);
const Class_Parts& Parts_Of(const Buttons* control);
const Class_Parts& Parts_Of(const CheckLists* control);
const Class_Parts& Parts_Of(const Color_Edit* control);
const Class_Parts& Parts_Of(const DirTrees* control);
const Class_Parts& Parts_Of(const Hue_Edit* control);
const Class_Parts& Parts_Of(const Labels* control);
const Class_Parts& Parts_Of(const Lists* control);
const Class_Parts& Parts_Of(const Selects* control);
const Class_Parts& Parts_Of(const Sliders* control);
const Class_Parts& Parts_Of(const TabItems* control);
const Class_Parts& Parts_Of(const Tabs* control);
const Class_Parts& Parts_Of(const Texts* control);
const Class_Parts& Parts_Of(const Valuators* control);
/// @}
