#pragma once

#include "engine/search_options.h"
#include "rules/basics.h"
#include "rules/notation.h"

#include <string>

namespace tavlon12 {

/// The user's options, with the values of a first start. Rule values are no part of it.
struct UserSettings {
    Long PlayMode = 0; ///< as stored: 0 Player-Computer, 1 Player-Player; a stored 2 reads as 0
    SearchLimits Limits;
    SearchOptions Search;
    Byte Notation = kAlgebraic;
    Long BoardTurned = 1;
    Byte ShowAvailableMoves = 1;
    Byte ChessDraws = 1;
    std::string UserName = "Player";
    Byte NotationCapitals = 0;
    Byte AskExit = 1;
    Byte AskForDraw = 0;
    Byte OpeningBook = 0;
    Byte MoveLimitCode = 1;
    Long CalculationOn = 1;
    Byte CanadianBook = 0;
    Byte ColonCapture = 0;
    Byte ChooseOpening = 0;
    Byte BookRandom = 0;
    Byte UseRating = 1;
    Long SkinMode = 2; ///< as stored; `SkinName` decides when the skin is loaded
    Byte AutoSave = 0;
    Byte UseSound = 0;
    std::string SkinName = "Classic Small";
    Byte KingVersusKing = 0;
    Byte PdnAlgebraic = 0;
    Byte PlyValueDepth = 5;
    Long UseClassic = 1; ///< 1: the variant's file lies among the program's variants, 0: among the user's
    Long TouchMove = 0;
};

} // namespace tavlon12
