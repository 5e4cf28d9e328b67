#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Opens the Variants dialog over the rules in force and returns when it is closed. Picks, draws and Apply have changed
/// the rules at once, whichever button has closed it; the boards hold the start position of a variant that was picked.
/// A name in the list of variants always has a definition: where a folder has none, the variant and its folder stay.
void EditVariants(Session& session);

// What acts on the dialog. The texts of squares are algebraic, whatever the notation in force.

/// The form over the rules in force.
VariantsForm FormOfRules(const Session& session);

/// The pick of a variant: its definition is read, and the controls show it. A definition that cannot be read is told in
/// a message, the variant stays, and false comes back.
bool VariantPicked(Session& session, VariantsForm& form, const std::string& name);

/// The pick of a folder of variants, as `UseClassic` has it: the list shows it, and its first variant is picked. The
/// folder that the list shows already changes nothing.
void FolderPicked(Session& session, VariantsForm& form, Long useClassic);

/// The pick of the colour that is played on: the promotion squares move onto it.
void ColourPicked(Session& session, VariantsForm& form, bool bottomLeftPlayed);

/// Draws flags and counts at random. The promotion squares in the form move onto the colour that is drawn.
void RandomRules(Session& session, VariantsForm& form);

/// Takes the form into the rules in force. An entry that is none (a number out of range, no playing square, an unknown
/// direction) is marked and told in a message, and false comes back: values copied before it stay.
bool ApplyVariant(Session& session, VariantsForm& form, bool includeFriends,
                  const std::function<void(VariantsBox)>& mark);

} // namespace tavlon12
