#include "session/board_input.h"

#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using namespace support;

/// A game of two persons, and a mouse over its board.
struct Mouse : SessionFixture {
    explicit Mouse(std::string_view placement, std::string_view rules = "", Byte turned = 0) {
        Game.Settings.PlayMode = kPlayerPlayer;
        Game.Settings.BoardTurned = turned;
        Screen.Board.IsEmpty = [this](Long view) {
            return Pos->Board[CellOfView(view, Game.Settings.BoardTurned)] == 0;
        };
        StartGame(*this, rules, placement);
    }

    Long View(std::string_view square) const { return ViewOfCell(SquareOf(square), Game.Settings.BoardTurned); }
    void Press(std::string_view square, MouseButton button = MouseButton::Left) {
        SquareMouseDown(Game, View(square), button);
    }
    /// The pointer goes to the last pixel of a square, or to the first, while the button is down on another.
    void Carry(std::string_view from, std::string_view to, bool lastPixel = true) {
        const Long edge = Game.Port.Board.SquareEdge();
        const Long inside = lastPixel ? edge - 1 : 0;
        SquareMouseMove(Game, View(from), (View(to) % 12 - View(from) % 12) * edge + inside,
                        (View(to) / 12 - View(from) / 12) * edge + inside);
    }
    void Release(MouseButton button = MouseButton::Left) { SquareMouseUp(Game, 0, button, -1, -1); }
    void Drag(std::string_view from, std::string_view to, bool lastPixel = true) {
        Press(from);
        Carry(from, to, lastPixel);
        Release();
    }

    /// The squares with a highlight box, by name in the order of their views.
    std::string Boxes() const {
        std::string names;
        for (Long view : Screen.Board.Boxed) names += NameOf(CellOfView(view, Game.Settings.BoardTurned)) + " ";
        return names;
    }
    const std::vector<std::string>& Moves() { return Screen.List(ListId::List1).Lines; }
};

const std::vector<std::string> kNone;

TEST(BoardInput, ADragMakesTheMoveFromAnyPixelOfTheTarget) {
    const char* moves[][3] = {{"W: c3; B: j8", "d4", "   1. c3-d4"},
                              {"W: c3; B: j8", "b4", "   1. c3-b4"},
                              {"W: ca; B: j8", "db", "   1. ca-dbK"},
                              {"W: c3; B: d4 d6 j8", "c7", "   1. c3xc7"}};
    for (Byte turned : {Byte(0), Byte(1)}) {
        for (bool lastPixel : {false, true}) {
            for (const auto& [placement, to, line] : moves) {
                Mouse mouse(placement, "", turned);
                mouse.Drag(std::string_view(placement).substr(3, 2), to, lastPixel);
                EXPECT_EQ(mouse.Moves(), std::vector<std::string>{line});
                EXPECT_EQ(mouse.Screen.Board.Carried, 0);
                EXPECT_TRUE(mouse.Screen.Messages.empty());
            }
        }
    }
}

TEST(BoardInput, ARefusedDragPutsThePieceBackAndSaysWhy) {
    const char* quiet = "W: c3 d4 g3; B: c9 f8";
    const char* oneJump = "W: c3 g3; B: d4 j8";
    const char* cannotMove = "You cannot move that piece";
    const struct {
        const char *Placement, *From, *To, *Message;
    } rows[] = {
        {quiet, "c9", "d8", "White moves"},
        {"W: c3 b4 d4 a5 c5 e5; B: j8", "c3", "b4", cannotMove},
        {oneJump, "g3", "h4", cannotMove},
        {quiet, "c3", "c5", "Illegal move"},
        {quiet, "c3", "b2", "Illegal move"},
        {quiet, "c3", "d4", "Illegal move: that square is not empty"},
        {oneJump, "c3", "b4", "Illegal move: you need to jump"},
        {"W: e3; B: f4 d4 d6 j8", "e3", "g5", "Illegal move: you cannot jump that way"},
        {quiet, "c3", "c3", ""},
        {quiet, "c3", "c4", ""}, // a light square
    };
    for (const auto& [placement, from, to, message] : rows) {
        Mouse mouse(placement);
        const std::string before = PlacementOf(mouse.Pos->Board);
        const std::vector<std::string> legal = mouse.Screen.List(ListId::List2).Lines;
        mouse.Press(from);
        EXPECT_EQ(mouse.Screen.Board.Lifted.contains(mouse.View(from)), mouse.Screen.Board.Carried != 0);
        mouse.Carry(from, to);
        mouse.Release();
        const std::vector<std::string> expected(*message == '\0' ? 0 : 1, message);
        EXPECT_EQ(Texts(mouse.Screen.Messages), expected);
        EXPECT_EQ(PlacementOf(mouse.Pos->Board), before);
        EXPECT_EQ(mouse.Moves(), kNone);
        EXPECT_EQ(mouse.Screen.List(ListId::List2).Lines, legal);
        EXPECT_EQ(mouse.Game.Input.DragSource, -1);
        EXPECT_EQ(mouse.Screen.Board.Carried, 0);
        EXPECT_TRUE(mouse.Screen.Board.Lifted.empty());
    }
}

TEST(BoardInput, ADropBesideTheBoardIsNone) {
    for (Byte turned : {Byte(0), Byte(1)}) {
        Mouse mouse("W: a1 l2; B: c9", "", turned);
        for (const auto& [from, dx, dy] :
             {std::tuple("a1", turned ? 40 : -1, -40), {"a1", 40, turned ? -1 : 40}, {"l2", turned ? -1 : 40, -40}}) {
            mouse.Press(from);
            SquareMouseMove(mouse.Game, mouse.View(from), dx, dy);
            mouse.Release();
        }
        EXPECT_EQ(mouse.Moves(), kNone);
        EXPECT_TRUE(mouse.Screen.Messages.empty());
        EXPECT_TRUE(mouse.Screen.Board.Lifted.empty());
    }
}

TEST(BoardInput, OnAllSquaresAPieceIsDroppedOnEitherColour) {
    Mouse mouse("W: c3; B: j8", "PiecesOnBlack=2 | WhiteManMovement=N;W;E N;W;E");
    mouse.Drag("c3", "c4");
    EXPECT_EQ(mouse.Moves(), std::vector<std::string>{"   1. c3-c4"});
}

TEST(BoardInput, ACaptureThatEndsWhereItBeganIsADropOnTheSameSquare) {
    Mouse mouse("W: e3; B: f4 f6 d6 d4 j0");
    mouse.Press("e3");
    mouse.Release();
    EXPECT_EQ(mouse.Moves(), std::vector<std::string>{"   1. e3xe3"});
}

TEST(BoardInput, AnEmptySquareShowsTheNumbersWhileItIsPressed) {
    Mouse mouse("W: c3; B: j8");
    mouse.Press("e5");
    EXPECT_TRUE(mouse.Screen.Board.NumbersShown);
    mouse.Carry("e5", "c3"); // boxes nothing
    EXPECT_EQ(mouse.Boxes(), "");
    mouse.Release();
    EXPECT_FALSE(mouse.Screen.Board.NumbersShown);

    mouse.Game.Input.PopupJustClosed = true; // this press closes the menu
    mouse.Press("e5");
    EXPECT_FALSE(mouse.Screen.Board.NumbersShown);
    mouse.Press("e5");
    EndBoardInput(mouse.Game);
    EXPECT_FALSE(mouse.Screen.Board.NumbersShown);
}

TEST(BoardInput, PressesThatCountForNothing) {
    Mouse mouse("W: c3; B: j8");
    BoardInput& input = mouse.Game.Input;
    mouse.Press("e5", MouseButton::Right);
    EXPECT_EQ(input.RightPressed, mouse.View("e5"));
    mouse.Press("c3");
    EXPECT_EQ(input.DragSource, -1) << "while the right button is down";
    mouse.Release(MouseButton::Right);
    EXPECT_EQ(input.RightPressed, -1);

    input.AfterPopup = true;
    mouse.Press("c3");
    EXPECT_EQ(input.DragSource, -1) << "until the mouse has moved";
    mouse.Carry("c3", "c3");
    mouse.Press("e5", MouseButton::Right);
    EXPECT_EQ(input.RightPressed, -1) << "the boxes are on the board";
    mouse.Press("c3");
    EXPECT_EQ(input.DragSource, mouse.View("c3"));

    mouse.Carry("c3", "d4");
    mouse.Game.Busy = true;
    mouse.Release();
    EndBoardInput(mouse.Game);
    EXPECT_EQ(input.DragSource, mouse.View("c3")) << "the search has the board";
    mouse.Game.Busy = false;
    EndBoardInput(mouse.Game);
    EXPECT_EQ(input.DragSource, -1);
    EXPECT_EQ(mouse.Screen.Board.Carried, 0);

    mouse.Press("c3");
    mouse.Release();
    EXPECT_EQ(mouse.Moves(), kNone) << "nothing is left of where the piece was carried";

    mouse.Game.Game.GameOver = true;
    mouse.Drag("c3", "d4");
    EXPECT_EQ(mouse.Moves(), kNone);
    mouse.Press("e5");
    EXPECT_TRUE(mouse.Screen.Board.NumbersShown) << "also when the game is over";
}

TEST(BoardInput, MovablePiecesAreBoxedThenThePressedOneWithItsTargets) {
    Mouse mouse("W: c3 b2 g3; B: d8");
    mouse.Carry("l7", "l7");
    EXPECT_EQ(mouse.Boxes(), "c3 g3 b2 ");
    mouse.Press("c3");
    EXPECT_EQ(mouse.Boxes(), "b4 d4 c3 ");
    mouse.Release();
    EXPECT_EQ(mouse.Boxes(), "");
    mouse.Carry("l7", "l7");
    EXPECT_EQ(mouse.Boxes(), "c3 g3 b2 ") << "after a move that was none they come anew";
    mouse.Game.Port.Board.PaintBoard(0);
    FormMouseMove(mouse.Game);
    mouse.Carry("l7", "l7");
    EXPECT_EQ(mouse.Boxes(), "c3 g3 b2 ") << "and when the mouse returns to the board";
    mouse.Drag("c3", "d4");
    mouse.Carry("l7", "l7");
    EXPECT_EQ(mouse.Boxes(), "d8 ") << "and for the other side";

    mouse.Game.Port.Board.PaintBoard(0);
    mouse.Game.Settings.ShowAvailableMoves = 0;
    mouse.Press("d8");
    EXPECT_EQ(mouse.Boxes(), "");
    mouse.Release();
    EXPECT_EQ(mouse.Game.Game.TouchedCell, 0) << "a piece counts as touched with the boxes alone";
}

TEST(BoardInput, ATouchedPieceMustMove) {
    Mouse mouse("W: c5 g5; B: j8");
    mouse.Game.Settings.TouchMove = 1;
    mouse.Press("c5");
    mouse.Release();
    mouse.Drag("g5", "h6");
    EXPECT_EQ(Texts(mouse.Screen.Messages), std::vector<std::string>{"Illegal move"});
    mouse.Drag("c5", "d6");
    EXPECT_EQ(mouse.Moves(), std::vector<std::string>{"   1. c5-d6"});
}

} // namespace
} // namespace tavlon12
