#pragma once

#include "session/session.h"

#include <functional>
#include <string>

namespace tavlon12 {

// The place of a square in the grid on the screen, 0 to 143 from the top left, and back.
Long CellOfView(Long view, Long boardTurned);
Long ViewOfCell(Long cell, Long boardTurned);

/// Draws position, coordinates, counts and labels anew and sets `EqualKingsOnly`; overlay 1 prints the square numbers
/// too.
void DrawBoard(Session& session, int overlay);

/// Takes the highlight boxes off the squares from which a move starts.
void RedrawFromSquares(Session& session);

/// Names, colours and the mark of the player to move; panel 1 gets "White moves" or "Black moves" when it is empty or
/// shows the other.
void UpdatePlayerLabels(Session& session);

/// The variant's name without a last " 12x12".
std::string PlainVariantName(const VariantState& variant);

/// The variant's name with its mark " (M)" when rules differ from the definition.
std::string ShownVariantName(const VariantState& variant, const RuleSet& rules);
void ShowVariantName(Session& session);

/// The line of strength and limit, for instance "Strength: 9   Time: 2 sec".
void ShowStrengthLine(Session& session);

/// "White moves" or "Black moves" by the side to move.
std::string SideToMoveText(const Position& position);

/// Runs a window that waits for the user. The clock of a search that is under way stands still meanwhile.
void ShowWindow(Session& session, const std::function<void()>& run);

/// A question. The clock of a search that is under way stands still meanwhile, as it does under a message.
bool AskYesNo(Session& session, const std::string& text, const std::string& title);

/// A message box, unless the program is being closed.
void ShowMessage(Session& session, const std::string& text, const std::string& title, MessageKind kind);

/// Lets the window live for a moment, so that a last move can be seen.
void WaitSeconds(Session& session, double seconds);

/// The message of a failure that cannot be repaired, and the end of the program without a question.
void FatalEnd(Session& session);

/// Shows the limit that a generator has passed and ends the program; false, with nothing done, when none has been
/// passed.
bool EndOnGeneratorFault(Session& session);

} // namespace tavlon12
