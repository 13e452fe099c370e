/// @file
/// Calls of members that paint a control which others may cover.
#pragma once

#include "host.h"

/// Calls a member. When it may paint over controls above, these are brought back before anything reaches the
/// screen.
/// @return what the member answers
template <class Member>
int Host::Beneath_Others(const Entry& entry, Member member) {
    if (!entries.Is_Below(entry, false)) return member();
    const Paint_Batch batch(window);
    const int answered = member();
    Paint_Area(Painted_Area(entry));
    return answered;
}
