#!/usr/bin/env python3
"""tools/make_variants.py [folder]: writes data/variants/*.ini and docs/variants.md from tools/variants/catalogue.toml.

With a folder the files go there, all in one place. The help text of a definition is made from its rule values, so that it
says what the program plays. Python 3.11, standard library."""

import pathlib
import sys
import textwrap
import tomllib

ROOT = pathlib.Path(__file__).resolve().parent.parent
CATALOGUE = ROOT / "tools" / "variants" / "catalogue.toml"

FORWARD = "NW;NE"
DIAGONAL = "NW;NE;SE;SW"
# In the order of the lines of a file. A value that an entry does not name is the one given here.
DEFAULTS = dict(
    MulJumps=1, MaxCapMove=1, MaxCapMoveKings=0, MaxCapMoveK=1, CapRequired=1, KingCapMove=0, LastCap=0, ManCapKing=1,
    ManContJump=1, ManContJumpCrowned=0, ManCapMoveKing=0, LongKings=1, KingFirst=0, CapReverse=0, RemovePieces=1,
    JumpFriend=0, NumberFriends=0, KingMan=0, ManKing=0, ChangeSide=0, RndColor=0, PiecesOnBlack=1, AntiMode=0,
    WinAtPromo=0, KingWin=0, NoLegalDraw=0, NumberPieces=0, ThreeKings=0, NumberKings=0, TwoKings=0, NumberKings2=0,
    RemoveMen=0, NumberMen=0, DoMoves=0, NumberMoves=0, canContract=0, ContractNumber=0, ContractW1=0, ContractW2=0,
    ContractB1=0, ContractB2=0, PromoW="BbDbFbHbJbLb", PromoB="A1C1E1G1I1K1",
    WhiteManMovement=f"{FORWARD} {DIAGONAL}", BlackManMovement=f"{FORWARD} {DIAGONAL}",
    WhiteKingMovement=f"{DIAGONAL} {DIAGONAL}", BlackKingMovement=f"{DIAGONAL} {DIAGONAL}", Setup="normal", BlackStarts=0)

EDGE = 12
NORMAL_ROWS = 5
NUMBERS = "no one two three four five six seven eight nine ten eleven twelve".split()
LAST_RANKS = {(colour, side): "".join(f"{c}{rank}" for i, c in enumerate("ABCDEFGHIJKL") if colour == 2 or (i + colour + side) % 2 == 0)
              for colour in (0, 1, 2) for side, rank in ((0, "b"), (1, "1"))}


def number(n):
    return NUMBERS[n] if n < len(NUMBERS) else str(n)


def counted(n, thing):
    return f"{number(n)} {thing if n == 1 else {'man': 'men'}.get(thing, thing + 's')}"


def listed(parts, last="and"):
    parts = [p for p in parts if p]
    return "".join(parts) if len(parts) < 2 else f"{', '.join(parts[:-1])} {last} {parts[-1]}"


def words(rules, key, captures):
    quiet, _, taking = rules[key].partition(" ")
    text = taking if captures else quiet
    return set(text.split(";")) - {""}


def diagonal_text(found):
    names = {frozenset(("NW", "NE")): "diagonally forward", frozenset(("SE", "SW")): "diagonally backward",
             frozenset(("NW", "NE", "SE", "SW")): "diagonally in all four directions"}
    return names.get(frozenset(found), "")


def straight_text(found):
    names = {frozenset("N"): "straight forward", frozenset("WNE"): "straight forward and sideways",
             frozenset("NE"): "straight forward and to the right", frozenset("WNES"): "straight in all four directions"}
    return names.get(frozenset(found), "")


def directions(found, last="and"):
    """Where the words of one square lead, from the player's side."""
    diagonal = found & {"NW", "NE", "SE", "SW"}
    straight = found & {"W", "N", "E", "S"}
    if len(diagonal) == 4 and len(straight) == 4:
        return "in all eight directions"
    text = listed([diagonal_text(diagonal), straight_text(straight)], last)
    assert text or not diagonal | straight, f"no words for {found}"
    return text


def far_directions(found):
    """The same for the words of two squares, which lead to the next square of the same colour."""
    far = {word[0] for word in found & {"WW", "NN", "EE", "SS"}}
    names = {frozenset("WNE"): "straight forward and sideways", frozenset("WNES"): "along ranks and files"}
    assert not far or frozenset(far) in names, f"no words for {found}"
    return names.get(frozenset(far), "")


def start_squares(rules):
    """The 144 digits of the start, the first rank first."""
    if rules["Setup"] != "normal":
        return rules["Setup"]
    dark = 0 if rules["PiecesOnBlack"] else 1
    side = {**dict.fromkeys(range(NORMAL_ROWS), "1"), **dict.fromkeys(range(EDGE - NORMAL_ROWS, EDGE), "2")}
    return "".join(side.get(r, "0") if (r + c) % 2 == dark else "0" for r in range(EDGE) for c in range(EDGE))


def has_kings(rules):
    return bool(set("34") & set(start_squares(rules)) or rules["PromoW"] or rules["PromoB"] or rules["ManKing"])


def side_text(name, digits, man, king):
    men, kings = digits.count(man), digits.count(king)
    return f"{name} has " + listed([counted(men, "man") if men else "", counted(kings, "king") if kings else ""])


def setup_text(rules):
    digits = start_squares(rules)
    board = {0: "the light squares", 1: "the dark squares", 2: "all squares"}[rules["PiecesOnBlack"]]
    text = f"The game is played on {board} of a board of 12 by 12. "
    text += side_text("White", digits, "1", "3") + ", and " + side_text("Black", digits, "2", "4") + ". "
    if rules["canContract"]:
        text += reserve_text(rules)
    if rules["RemoveMen"]:
        text += f"Before play {counted(rules['NumberMen'], 'man')} of each side, drawn by lot, " \
                f"{'is' if rules['NumberMen'] == 1 else 'are'} taken off. "
    text += "The lot says who begins" if rules["RndColor"] else ("Black" if rules["BlackStarts"] else "White") + " begins"
    text += ", and the players move in turn."
    if rules["DoMoves"]:
        text += f" The first {counted(rules['NumberMoves'], 'move')} of the game are drawn by lot."
    return text


def reserve_text(rules):
    rows = [rules[k] - 1 for k in ("ContractW1", "ContractB1")]
    text = f"Each side has {counted(rules['ContractNumber'], 'man')} more in reserve. Instead of moving, a player who has no " \
           f"capture to make may put one on a free square of rank {rows[0]} (White) or {rows[1]} (Black)"
    if rules["ContractW2"] != rules["ContractW1"]:
        text += f", if the square of the same file on rank {rules['ContractW2'] - 1} (White) or {rules['ContractB2'] - 1} " \
                "(Black) is free too"
    return text + ". "


def man_text(rules, key, name):
    steps, taking = directions(words(rules, key, False), "or"), words(rules, key, True)
    text = f"{name} steps one square {steps}" if steps else f"{name} does not step"
    if not taking:
        return text + " and captures nothing."
    reach = "from any distance, like a flying king" if rules["ManCapMoveKing"] else \
        "by jumping over a neighbouring piece of the other side to the empty square right behind it"
    near = directions(taking) and f"{directions(taking)}, {reach}"
    far = far_directions(taking) and f"{far_directions(taking)} over a piece two squares away to the empty square two behind it"
    return f"{text}. It captures {listed([near, far], ', and')}.".replace(" , and", ", and")


def men_text(rules):
    if not set("12") & set(start_squares(rules)):
        return ""
    if rules["WhiteManMovement"] == rules["BlackManMovement"]:
        text = man_text(rules, "WhiteManMovement", "A man")
    else:
        text = man_text(rules, "WhiteManMovement", "A white man") + " " + man_text(rules, "BlackManMovement", "A black man")
    if rules["JumpFriend"]:
        run = {-1: "an unbroken line of men of its own, however long,",
               1: "a neighbouring man of its own"}.get(rules["NumberFriends"],
                                                      f"exactly {number(rules['NumberFriends'])} men of its own in a line")
        text += f" Instead of a step it may leap over {run} to the free square behind."
    if not rules["ManCapKing"]:
        text += " A man cannot capture a king."
    return text


def king_text(rules):
    if not has_kings(rules):
        return "There are no kings."
    key = "WhiteKingMovement" if words(rules, "WhiteKingMovement", True) else "BlackKingMovement"
    quiet, taking = words(rules, key, False), words(rules, key, True)
    same = "on the squares of its own colour"
    steps, jumps = (listed([directions(found, "or"), far_directions(found) and f"{far_directions(found)} {same}"], "or")
                    for found in (quiet, taking))
    if not rules["LongKings"]:
        text = f"A king steps one square {steps}" + (f" and captures {jumps} by the short jump." if jumps else ".")
    else:
        text = f"A king moves {steps} over any number of empty squares. It captures {jumps} from any distance, if the square " \
               "behind the piece is empty, and "
        text += "stops on the square right behind it." if rules["KingFirst"] else "may land on any empty square beyond it."
    if rules["CapReverse"]:
        text += " In a capture it may turn straight back."
    if rules["KingMan"]:
        text += " A king that has captured is a man again."
    return text


def choice_text(rules):
    if rules["KingCapMove"] and not rules["MaxCapMoveKings"]:
        first = "If a king can capture, a king must. "
    elif rules["KingCapMove"]:
        first = "The longest capture of a king, where a king can capture, sets the number that must be taken. "
    else:
        first = ""
    if not rules["MaxCapMove"]:
        return first + "Any capture may be chosen."
    text = first + "Of all captures one must be chosen that takes the most pieces"
    return text + ("; among equal ones, one that takes the most kings." if rules["MaxCapMoveKings"] else ".")


def capture_text(rules):
    if not any(words(rules, key, True) for key in DEFAULTS if key.endswith("Movement")):
        return ""
    text = "Who can capture must do so. " if rules["CapRequired"] else "Nobody has to capture. "
    if rules["LastCap"]:
        text += "But a piece that can be captured by the first jump and was moved last must be. "
    text += "After each jump the player may stop, though more could be taken. " if not rules["MulJumps"] else \
        "A capture goes on as long as there is a further piece to jump. "
    text += choice_text(rules)
    text += " The jumped pieces leave the board when the move is over: until then they stand in the way, and no piece is " \
            "jumped twice." if rules["RemovePieces"] else \
        " A jumped piece is gone at once and no longer stands in the way, but nothing lands on its square in the same move."
    return text


def goal_squares(rules, key, side):
    if rules[key] == LAST_RANKS[rules["PiecesOnBlack"], side]:
        return "the last rank"
    squares = [rules[key][i:i + 2].lower() for i in range(0, len(rules[key]), 2)]
    names = [s[0] + {"0": "10", "a": "11", "b": "12"}.get(s[1], s[1]) for s in squares]
    return "one of the squares " + " ".join(names) if len(names) > 1 else names[0]


def promotion_text(rules):
    digits = start_squares(rules)
    white = goal_squares(rules, "PromoW", 0) if rules["PromoW"] and "1" in digits else ""
    black = goal_squares(rules, "PromoB", 1) if rules["PromoB"] and "2" in digits else ""
    if not white and not black:
        return "No man is promoted." + last_man_text(rules)
    crowned = "a king of the other side" if rules["ChangeSide"] else "a king"
    if white == black:
        text = f"A man that ends its move on {white} becomes {crowned}."
    else:
        text = listed([f"a white man that ends its move on {white}" if white else "",
                       f"a black man that ends its move on {black}" if black else ""])
        text = f"{text[0].upper()}{text[1:]} becomes {crowned}."
    place = "the last rank" if white == black == "the last rank" else "such a square"
    return text + passing_text(rules, place) + last_man_text(rules)


def passing_text(rules, place):
    if not any(words(rules, key, True) for key in ("WhiteManMovement", "BlackManMovement")):
        return ""
    if not rules["ManContJump"]:
        return f" A man that reaches {place} in a capture is crowned and stops there."
    if rules["ManContJumpCrowned"]:
        return f" A man that reaches {place} in a capture is crowned at once and goes on capturing as a king."
    return f" One that only passes {place} during a capture stays a man."


def last_man_text(rules):
    return " A side's last man, when it has nothing else, becomes a king at once." if rules["ManKing"] else ""


def aim_text(rules):
    wins, loses = ("has won", "has lost") if not rules["AntiMode"] else ("has lost", "has won")
    blocked = " A side with pieces but no move draws." if rules["NoLegalDraw"] else ""
    text = f"Who has no piece left{'' if rules['NoLegalDraw'] else ', or no move,'} {loses}.{blocked}"
    if rules["NumberPieces"]:
        text += f" So has a side that is down to {counted(rules['NumberPieces'], 'piece')}" \
                f"{'' if rules['NumberPieces'] == 1 else ' or fewer'}."
    if rules["KingWin"]:
        text += f" The first player whose king stands on {crown_goal(rules)} {wins}."
    if rules["WinAtPromo"]:
        text += f" The first player whose king comes back to the first rank of its own side {wins}."
    return text


def crown_goal(rules):
    """Where a king wins, for each side."""
    goals = {name: goal_squares(rules, key, side) for name, key, side in (("White", "PromoW", 0), ("Black", "PromoB", 1))
             if rules[key]}
    if set(goals.values()) == {"the last rank"}:
        return "the last rank" + (f" ({list(goals)[0]})" if len(goals) == 1 else "")
    return listed([f"{place} ({name})" for name, place in goals.items()], "or")


def draw_text(rules):
    text = ""
    if rules["ThreeKings"]:
        text += f"Three kings against one are a draw after {counted(rules['NumberKings'], 'move')}. "
    if rules["TwoKings"]:
        text += f"Two kings against one are a draw after {counted(rules['NumberKings2'], 'move')}. "
    return text + "The options of the program can add draws by repetition and by moves without progress."


def thinking_text(rules):
    if words(rules, "WhiteManMovement", False):
        return ""
    return "It follows every capture to its end, and here every move is one. Give it ten seconds or more for a move (Options)."


def help_paragraphs(entry, rules):
    titled = [("", entry["special"]), ("Start: ", setup_text(rules)), ("Men: ", men_text(rules)), ("Kings: ", king_text(rules)),
              ("Captures: ", capture_text(rules)), ("Promotion: ", promotion_text(rules)), ("Aim: ", aim_text(rules)),
              ("Draws: ", draw_text(rules)), ("Computer: ", thinking_text(rules)), ("Origin: ", entry["origin"] + ".")]
    return [title + text for title, text in titled if text]


def help_lines(paragraphs):
    lines = []
    for at, paragraph in enumerate(paragraphs):
        lines += ["Help=<br>"] * 2 if at else []
        first, *more = textwrap.wrap(paragraph, 112)
        lines += ["Help=" + first] + ["Help= " + line for line in more]
    return lines


def definition(entry):
    rules = {**DEFAULTS, **entry["rules"]}
    lines = [entry["name"]] + [f"{key}={value}" for key, value in rules.items()] + ["HelpLink=", "QuickHelpLink="]
    return "\r\n".join(lines + help_lines(help_paragraphs(entry, rules)) + ["END", ""])


def diagram(rules):
    """The start as seen by White, as text."""
    signs = dict(zip("01234", ".wbWB"))
    digits = start_squares(rules)
    rows = [" ".join(signs[d] for d in digits[r * EDGE:(r + 1) * EDGE]) for r in reversed(range(EDGE))]
    return "\n".join(f"    {'1234567890ab'[EDGE - 1 - i]}  {row}" for i, row in enumerate(rows)) + "\n       a b c d e f g h i j k l"


def glance(entry):
    """The cells of a variant's row."""
    rules = {**DEFAULTS, **entry["rules"]}
    men = "forward" if not words(rules, "WhiteManMovement", True) & {"SE", "SW", "S", "SS"} else "all ways"
    must = ("free" if not rules["CapRequired"] else "most pieces" if rules["MaxCapMove"] else "any") + \
        (", most kings" if rules["MaxCapMoveKings"] else "") + (", king first" if rules["KingCapMove"] else "")
    board = {0: "light", 1: "dark", 2: "all"}[rules["PiecesOnBlack"]]
    begins = "lot" if rules["RndColor"] else "Black" if rules["BlackStarts"] else "White"
    kings = "none" if not has_kings(rules) else "fly" if rules["LongKings"] else "short"
    name = entry["name"].removesuffix(" 12x12")
    return [name, board, begins, men, kings, must, entry["special"]]


def page(entries):
    lines = ["# The variants", "", "Made by `tools/make_variants.py` from the definitions. *Men* says where men capture, *captures* "
             "which capture must be made. Diagrams: `w` `b` men, `W` `B` kings; White's first rank is below.", ""]
    for group in dict.fromkeys(e["group"] for e in entries):
        lines += [f"## {group}", "", "| Variant | squares | begins | men | kings | captures | what is special |",
                  "|---|---|---|---|---|---|---|"]
        chosen = sorted((e for e in entries if e["group"] == group), key=lambda e: e["name"].lower())
        lines += ["| " + " | ".join(glance(e)) + " |" for e in chosen] + [""]
        for e in chosen:
            if "Setup" in e["rules"]:
                lines += [f"**{e['name'].removesuffix(' 12x12')}**", "", diagram({**DEFAULTS, **e["rules"]}), ""]
    return "\n".join(lines)


def main():
    entries = tomllib.loads(CATALOGUE.read_text())["variant"]
    own = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else None
    folder = own or ROOT / "data" / "variants"
    folder.mkdir(parents=True, exist_ok=True)
    for entry in entries:
        (folder / f"{entry['name']}.ini").write_bytes(definition(entry).encode("ascii"))
    ((own or ROOT / "docs") / "variants.md").write_text(page(entries))


if __name__ == "__main__":
    main()
