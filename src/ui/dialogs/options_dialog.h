#pragma once

#include "session/ui_port.h"

#include <QWidget>

#include <span>

namespace tavlon12 {

/// A control of the Options dialog, and the setting that it holds.
struct OptionControl {
    enum class Kind {
        Box,    ///< a check box: 1 or 0
        Switch, ///< one of two check boxes of which one is always on
        Choice, ///< an option button
        Slider,
        Field,
        List,
    };
    enum class Frame { Strength, Level, Skin, Board, Search, Book, Draw, Misc };

    Kind What;
    Frame In;
    const char* Name;
    std::string_view Setting;
    const char* Label = ""; ///< name of the label before it, which the first of several choices has
    const char* Text = "";  ///< of a choice; of a switch, what it is called
    Long Value = 0; ///< of switch and choice: the setting when it is on; of a slider that runs the other way: the
                    ///< sum of its place and the setting
};
std::span<const OptionControl> OptionControls();

/// The user's settings on four tabs. What he does goes to the events; returns when the dialog is closed.
void EditOptions(QWidget* parent, const OptionsForm& form, const OptionsEvents& events);

} // namespace tavlon12
