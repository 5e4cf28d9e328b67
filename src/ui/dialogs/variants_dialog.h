#pragma once

#include "rules/rule_keys.h"
#include "session/ui_port.h"

#include <QWidget>

#include <span>

namespace tavlon12 {

/// A control of the Variants dialog that holds one flag or number. Captions and tool tips are the rule's.
struct VariantControl {
    enum class Frame { Captures, FlyingKings, WinDraw, Misc, Opening, OffTheBoard } In;
    enum class Place { Line, Indented, Beside } At; ///< on a line of its own, or beside the control before it
    const char* Name;                               ///< of the check box or of the text field
    const char* Label;                              ///< of the field's label; null for a check box
    RuleMember Rule;
};
std::span<const VariantControl> VariantControls();

/// When a control is open: each of its rows must agree with a box.
struct VariantGreying {
    enum class Shut { KeepsValue, TurnsOn, TurnsOff };

    const char* Control;
    const char* Box;
    bool OpenWhen;                    ///< the box is so
    Shut WhenShut = Shut::KeepsValue; ///< what happens to the control, a box, while it is greyed
};
std::span<const VariantGreying> VariantGreyings();

/// The dialog that picks a variant and changes the rules. Returns when it is closed.
void EditVariants(QWidget* parent, const VariantsForm& form, const VariantsEvents& events);

} // namespace tavlon12
