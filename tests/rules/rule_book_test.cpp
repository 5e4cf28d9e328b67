#include "rules/generate_moves.h"
#include "support/positions.h"
#include "support/reference_generator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <vector>

// What the rule books of well-known games demand, against the shipped definitions of these games.

namespace tavlon12 {
namespace {

using namespace support;

/// The name of a game in the rows below, and the definitions with its moves. Misere games move like the game they turn.
const std::map<std::string, std::string> kGames = {
    {"International", "Canadian Checkers|International Draughts 12x12|Brazilian Draughts 12x12|Antidraughts 12x12"},
    {"Russian", "Russian Draughts 12x12|Poddavki 12x12"},
    {"Pool", "Pool Checkers 12x12"},
    {"American", "American Checkers 12x12|Anticheckers 12x12"},
    {"Czech", "Czech Draughts 12x12"},
    {"German", "German Draughts 12x12"},
    {"Thai", "Makhos 12x12"},
    {"Frisian", "Frisian Draughts 12x12"},
    {"Italian", "Italian Draughts 12x12|Vinciperdi 12x12|Italian Drawn Opening 12x12"},
    {"Vinciperdi", "Vinciperdi 12x12|Italian Drawn Opening 12x12"},
    {"Spanish", "Spanish Draughts 12x12|Portuguese Draughts 12x12|Gana Pierde 12x12"},
    {"Argentinian", "Argentinian Draughts 12x12"},
    {"Turkish", "Turkish Draughts 12x12"}};

struct RuleBookRow {
    const char* Games;
    const char* Fact;
    const char* Placement; ///< White moves; the row holds for Black too, with the board turned round
    const char* Legal;     ///< all legal moves; jumped pieces rank by rank from White's side, "=K": promoted
};

// What no value says, and so no row: a king of Russian, pool or Czech draughts must land where it can go on and is else
// free (`MaxCapMoveK` keeps a short landing before the long one, and drops a short way that is tried after a long one);
// in Italian draughts of equal captures a king's goes before a man's, then the one that meets a king first, and no king
// may take less than a man could (`KingCapMove` lets it, and the family needs it; Vinciperdi does without); in Frisian
// draughts two kings go before three men, and at equal value, as in the Argentinian game, a king captures before a man;
// a Turkish king may land where it has just captured (`RemovePieces` lets it pass, not stay).
constexpr RuleBookRow kRows[] = {
    {"International Russian Pool American Czech German Thai Frisian", "men step forward", "W: c3", "c3-b4 c3-d4"},
    {"Italian Spanish Argentinian", "men step forward", "W: d3", "d3-c4 d3-e4"},
    {"Turkish", "men step forward and sideways", "W: d4", "d4-c4 d4-d5 d4-e4"},
    {"International Russian Pool American Czech German Thai Frisian", "must capture, a king too", "W: c3 g3; B: Kd4",
     "c3xe5(Kd4)"},
    {"Spanish Argentinian", "must capture, a king too", "W: d3 h3; B: Ke4", "d3xf5(Ke4)"},
    {"Turkish", "must capture, a king too", "W: d3 h3; B: Kd4", "d3xd5(Kd4)"},
    {"Italian", "men do not take kings", "W: d3; B: Ke4", "d3-c4"},
    {"Italian", "must capture, but no king with a man", "W: d3 h3; B: e4 Kg6", "d3xf5(e4)"},

    {"International Russian Pool Frisian", "men capture backward", "W: e5; B: d4", "e5xc3(d4)"},
    {"American Czech German Thai", "men capture forward only", "W: e5; B: d4", "e5-d6 e5-f6"},
    {"Italian Spanish Argentinian", "men capture forward only", "W: f5; B: e4", "f5-e6 f5-g6"},
    {"Turkish", "men capture forward and sideways", "W: d4; B: d3 c4 d5 e4", "d4xb4(c4) d4xd6(d5) d4xf4(e4)"},
    {"Frisian", "men capture straight too", "W: e5; B: e3 c5 g5 e7", "e5xe1(e3) e5xa5(c5) e5xi5(g5) e5xe9(e7)"},
    {"International Russian Pool Frisian", "no piece is taken twice", "W: c3; B: b4 d4 b6 d6", "c3xc3(b4,d4,b6,d6)"},
    {"American", "no piece is taken twice", "W: Kc3; B: b4 d4 b6 d6", "c3xc3(b4,d4,b6,d6)"},

    {"International Frisian", "most pieces before all else", "W: Kc3 f6 i3; B: Kd4 j4 j6", "i3xi7(j4,j6)"},
    {"Spanish Argentinian", "most pieces before all else", "W: Kd3 g6 j3; B: Ke4 k4 k6", "j3xj7(k4,k6)"},
    {"Turkish", "most pieces before all else", "W: d4 j5 Kj1; B: Kd5 e4 f5 Kj3", "d4xf6(e4,f5)"},
    {"Turkish", "a king counts as a man", "W: d4; B: Kd5 e4", "d4xd6(Kd5) d4xf4(e4)"},
    {"Russian Pool American Czech German Thai", "any capture, but to its end", "W: c3 i3; B: d4 j4 j6",
     "c3xe5(d4) i3xi7(j4,j6)"},
    {"International", "a king counts as a man", "W: c3 i3; B: Kd4 j4", "c3xe5(Kd4) i3xk5(j4)"},
    {"Frisian", "a king and a man are worth more than two men", "W: c3 i3; B: Kd4 d6 j4 j6", "c3xc7(Kd4,d6)"},
    {"Spanish Argentinian", "of as many pieces most kings", "W: d3 j3; B: Ke4 e6 k4 k6", "d3xd7(Ke4,e6)"},
    {"Italian", "most pieces before most kings", "W: Kd3 Kj3; B: Ke4 k4 k6", "j3xj7(k4,k6)"},
    {"Italian", "of as many pieces most kings", "W: Kd3 Kj3; B: Ke4 k4", "d3xf5(Ke4)"},
    {"Vinciperdi", "most pieces before a king's right", "W: d3 Kj3; B: e4 e6 k4", "d3xd7(e4,e6)"},
    {"Czech", "a king captures before a man that could take more", "W: c3 l6 Ki3; B: d4 d6 j4", "i3xk5(j4)"},
    {"Russian Pool American German Thai", "a king has no right before a man", "W: c3 l6 Ki3; B: d4 d6 j4",
     "c3xc7(d4,d6) i3xk5(j4)"},

    {"American", "kings step one square", "W: Kc3", "c3-b2 c3-d2 c3-b4 c3-d4"},
    {"American", "kings do not capture from afar", "W: Ka1; B: c3", "a1-b2"},
    {"Italian", "kings do not capture from afar", "W: Kb1; B: d3", "b1-a2 b1-c2"},
    {"Italian", "kings capture backward", "W: Kf5; B: e4", "f5xd3(e4)"},
    {"International Russian Pool Czech German Thai Frisian", "kings fly up to a pair", "W: Ka1; B: d4 e5",
     "a1-b2 a1-c3"},
    {"Spanish Argentinian", "kings fly up to a pair", "W: Kl2; B: i5 h6", "l2-k1 l2-k3 l2-j4"},
    {"Turkish", "kings fly straight", "W: Ka1 a3; B: d1 e1", "a1-a2 a1-b1 a1-c1 a3-a4 a3-b3"},
    {"International Russian Pool Czech Frisian", "kings capture from afar and land at will", "W: Ka1; B: d4 h8 i9",
     "a1xe5(d4) a1xf6(d4) a1xg7(d4)"},
    {"Spanish", "kings capture from afar and land at will", "W: Kb1; B: e4 i8 j9", "b1xf5(e4) b1xg6(e4) b1xh7(e4)"},
    {"Turkish", "kings capture from afar and land at will", "W: Ka1; B: a4 a7 a8", "a1xa5(a4) a1xa6(a4)"},
    {"German Thai", "kings halt right behind a capture", "W: Ka1; B: d4 h8 i9", "a1xe5(d4)"},
    {"Argentinian", "kings halt right behind a capture", "W: Kb1; B: e4 i8 j9", "b1xf5(e4)"},
    {"Frisian", "kings capture straight from afar", "W: Ka1; B: a7", "a1xa9(a7) a1xaa(a7)"},
    {"International", "kings land for the longest capture", "W: Ka1; B: d4 h6",
     "a1xi5(d4,h6) a1xj4(d4,h6) a1xk3(d4,h6) a1xl2(d4,h6)"},
    {"Russian Pool Czech", "kings that can go on land for it", "W: Ka1; B: d4 f4",
     "a1xg3(d4,f4) a1xh2(d4,f4) a1xi1(d4,f4)"},

    {"International", "pieces leave after the move: d4 guards f2", "W: Ka1; B: f2 d4 d8 f8",
     "a1xa5(d4,d8,f8) a1xb6(d4,d8,f8) a1xc7(d4,d8,f8)"},
    {"Spanish", "pieces leave after the move: e4 guards g2", "W: Kb1; B: g2 e4 e8 g8",
     "b1xa4(e4,e8,g8) b1xb5(e4,e8,g8) b1xc6(e4,e8,g8) b1xd7(e4,e8,g8)"},
    {"Russian Pool Czech German", "pieces leave after the move: d4 guards e3", "W: Ka1 a5 a9 d0 h8; B: e3 d4 f6 c7 f8",
     "a1xb8(d4,c7) a1xb6(d4,f6,c7,f8)"},
    {"Frisian", "pieces leave after the move: d4 guards e3", "W: Ka1 a5 a9 d0 h8; B: e3 d4 f6 c7 f8",
     "a1xe1(e3,d4,f6,f8) a1xb6(d4,f6,c7,f8)"},
    {"Argentinian", "pieces leave after the move: e4 guards f3", "W: Kb1; B: f3 e4 g6 d7 g8", "b1xc6(e4,g6,d7,g8)"},
    {"Turkish", "pieces leave at once: the way to g4 leads over e4", "W: Ke1 j4; B: e4 g4 b5 c6",
     "e1xh4(e4,g4,b5,c6) e1xi4(e4,g4,b5,c6)"},
    {"Turkish", "a capturing king does not turn straight back", "W: Kd5 d9; B: d2 d7", "d5xd1(d2) d5xd8(d7)"},
    {"Thai", "pieces leave at once: a way back", "W: Ke5; B: c3 g7", "e5xb2(c3,g7) e5xh8(c3,g7)"},

    {"International Pool Frisian", "men go on from the last rank as men", "W: i9 d0; B: ea ga", "d0xh0(ea,ga)"},
    {"Russian", "a man captures on from the last rank as a king", "W: k7 d0; B: i9 ea", "d0xj8(i9,ea)=K"},
    {"International Pool Frisian", "men that end on the last rank are crowned", "W: k7 d0; B: i9 ea", "d0xfb(ea)=K"},
    {"American Czech German Thai", "crowning ends the move", "W: i9 d0; B: ea ga", "d0xfb(ea)=K"},
    {"Italian Spanish Argentinian", "crowning ends the move", "W: h9 c0; B: da fa", "c0xeb(da)=K"},
    {"Turkish", "a man captures on along the last rank and is crowned", "W: d0; B: da eb", "d0xfb(da,eb)=K"},
};

Long TurnedRound(Long square) {
    return kFirstSquare + kLastSquare - square;
}

BoardCells TurnedRound(BoardCells board) {
    std::reverse(board.begin() + kFirstSquare, board.begin() + kLastSquare + 1);
    for (auto& cell : board)
        if (cell != kBorder) cell = -cell;
    return board;
}

/// The legal moves as White sees them, the jumped pieces of each in the order of the squares.
std::set<std::string> LegalMoves(const RuleSet& rules, const BoardCells& whiteBoard, Long side) {
    const auto position = MakePosition(rules, side == kWhite ? whiteBoard : TurnedRound(whiteBoard), side);
    std::set<std::string> texts;
    const Long count = GenerateLegalMoves(*position);
    for (Long slot = 0; slot < count; ++slot) {
        ReferenceMove move = AsReference(position->Moves[position->Tree.PlyFirstMove[position->Tree.Ply] + slot]);
        if (side == kBlack) {
            move.From = TurnedRound(move.From);
            move.To = TurnedRound(move.To);
            for (auto& jumped : move.Jumped) jumped.Square = TurnedRound(jumped.Square);
        }
        std::ranges::sort(move.Jumped, {}, [](const auto& jumped) { return jumped.Square; });
        texts.insert(MoveText(move));
    }
    return texts;
}

std::set<std::string> Parts(const std::string& text, char separator) {
    std::istringstream stream(text);
    std::set<std::string> parts;
    for (std::string part; std::getline(stream, part, separator);) parts.insert(part);
    return parts;
}

/// The definitions of the games named in a row.
std::vector<NamedRules> Definitions(const std::string& games) {
    std::vector<NamedRules> found;
    for (const std::string& game : Parts(games, ' '))
        for (const std::string& name : Parts(kGames.at(game), '|')) {
            const auto rules = std::ranges::find(ShippedRules(), name, &NamedRules::Name);
            if (rules == ShippedRules().end()) throw std::invalid_argument("no definition " + name);
            found.push_back(*rules);
        }
    return found;
}

TEST(RuleBook, DemandsTheseMoves) {
    for (const RuleBookRow& row : kRows)
        for (const auto& [name, rules] : Definitions(row.Games))
            for (Long side : {kWhite, kBlack})
                EXPECT_EQ(LegalMoves(rules, BoardOf(row.Placement), side), Parts(row.Legal, ' '))
                    << name << ": " << row.Fact << (side == kWhite ? "; " : "; turned round: ") << row.Placement;
}

TEST(RuleBook, SaysWhoBeginsAndWhetherTheLeftCornerIsPlayedOn) {
    const auto expect = [](const char* games, Long first, bool cornerPlayed) {
        for (const auto& [name, rules] : Definitions(games)) {
            EXPECT_EQ(StartPosition(rules)->Tree.SideToMove, first) << name;
            EXPECT_EQ(IsPlayingSquare(SquareOf("a1"), rules.PiecesOnBlack), cornerPlayed) << name;
        }
    };
    expect("International Russian Czech Frisian Turkish", kWhite, true);
    expect("American Pool", kBlack, true);
    expect("Italian Spanish Argentinian", kWhite, false);
}

} // namespace
} // namespace tavlon12
