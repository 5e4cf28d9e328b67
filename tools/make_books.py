#!/usr/bin/env python3
"""tools/make_books.py [--lab PROGRAM] [--jobs N] [--parallel ARGUMENTS] [--scores FILE] [BOOK ...]: computes the opening
books, data/books/*.bok, and data/opening.pdn by searches of tavlon12-lab; docs/books.md tells how. A book named on the
command line is made alone. Scores found are kept in FILE, so that a run that was stopped goes on where it was.
Python 3.11 with its standard library, and GNU parallel, which runs N searches at a time."""

import argparse
import functools
import json
import pathlib
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
VARIANTS = ROOT / "data" / "variants"

# Each book: the definition, the least number of moves in it, the depth in half-moves to which each of them is searched.
BOOKS = {
    "Canadian Checkers": (2000, 10),
    "American Checkers 12x12": (500, 10),
    "Italian Draughts 12x12": (500, 10),
    "Russian Draughts 12x12": (500, 10),
}
# This one serves the other games from the classic start too, by a copy of the American section.
CANADIAN, AMERICAN = "Canadian Checkers", "American Checkers 12x12"

FIRST_DEPTH, FIRST_MARGIN, FIRST_BEST = 5, 50, 8  # moves that a shallow search finds far worse are not searched again
OFFERED = [(2, 25, 8), (5, 18, 4), (40, 12, 3)]  # up to a ply: how much less than the best a move may score; how many
PLY_COST = 5  # a line is grown before another that is n half-moves longer, or has lost 5n more
ROUND = 24             # positions grown at a time, whatever the number of jobs: the book does not depend on it
NAMED_PLIES = 4
LEAST_OPENINGS, OPENING_PLIES, OPENING_BALANCE, OPENING_DEPTH = 40, (4, 6), 30, 11



def normal_start(colour):
    """The built-in start in digits, from the lower left corner, on the squares of this colour (1: dark)."""
    rows = ("10" * 6, "01" * 6)
    board = [rows[(row + colour + 1) % 2] for row in range(12)]
    return "".join(board[:5]) + "0" * 24 + "".join(board[7:]).replace("1", "2")


def digit_place(square):
    return (square // 14 - 2) * 12 + square % 14 - 1


def algebraic(square):
    return "abcdefghijkl"[square % 14 - 1] + "1234567890ab"[square // 14 - 2]


def numeric(square):
    return (13 - square // 14) * 6 + (square % 14 + 1) // 2


def book_key(move):
    return "%02d%02d" % tuple(numeric(square) for square in move)


def digits_of(name):
    """The board of a position by its name."""
    return name.split()[-2]


def count_pieces(name):
    return 144 - digits_of(name).count("0")


class Lab:
    """Asks the tool many questions at once, and remembers the scores."""

    def __init__(self, arguments):
        self.command = ["parallel", "--will-cite", "--pipe", "--keep-order", "-j", str(arguments.jobs),
                        *shlex.split(arguments.parallel)]
        self.batch = f"nice {shlex.quote(arguments.lab)} batch"
        self.file = arguments.scores
        self.scores = {}
        if self.file and self.file.exists():
            self.scores = dict(map(json.loads, self.file.read_text().splitlines()))

    def ask(self, questions, lines_a_job):
        """The lines of each answer; "error" and the reason for a question that is none."""
        if not questions:
            return []
        run = subprocess.run([*self.command, "-N", str(lines_a_job), self.batch], input="\n".join(questions) + "\n",
                             stdout=subprocess.PIPE, text=True, check=True)
        answers = [answer.strip("\n").splitlines() for answer in ("\n" + run.stdout).split("\n.\n")[:-1]]
        if len(answers) != len(questions):
            sys.exit(f"make_books.py: tavlon12-lab could not answer: {run.stdout[-400:]}")
        return answers

    def search(self, positions, depth, lines_a_job):
        """The scores of the positions, options of the tool that lead to each under its name, for the side to move."""
        missing = {name: options for name, options in positions.items() if f"{name} {depth}" not in self.scores}
        answers = self.ask([f"search {options} --depth {depth}" for options in missing.values()], lines_a_job)
        found = {f"{name} {depth}": score_of(answer[-1]) for name, answer in zip(missing, answers)}
        self.scores |= found
        if self.file and found:
            with self.file.open("a") as out:
                out.writelines(json.dumps(item) + "\n" for item in found.items())
        return {name: self.scores[f"{name} {depth}"] for name in positions}


def options_of(variant):
    return f"--variants {shlex.quote(str(VARIANTS))} --variant {shlex.quote(variant)}"


def score_of(line):
    words = line.split()
    return int(words[3]) if words[0] == "bestmove" else {"won": 10000, "lost": -10000}.get(words[1], 0)


class Node:
    """A position of the book; two orders of moves that lead to it share it."""

    def __init__(self, options, score):
        self.options = options  # that lead the tool to it
        self.score = score      # for the side to move
        self.moves = None       # (from, to) -> name of the position behind it, once it has been grown


class Tree:
    def __init__(self, lab, variant, depth):
        self.lab, self.variant, self.depth = lab, variant, depth
        self.head = read_definition(variant)
        self.first = "b" if self.head["BlackStarts"] == "1" else "w"
        self.root = self.name_of(normal_start(int(self.head["PiecesOnBlack"])), self.first)
        self.nodes = {self.root: Node(f"{options_of(variant)} --play ''", 0)}

    def name_of(self, digits, side):
        return f"{self.variant} {digits} {side}"

    def child_name(self, name, move, captures, promotes):
        digits = list(digits_of(name))
        piece = digits[digit_place(move[0])]
        digits[digit_place(move[0])] = "0"
        for square in captures:
            digits[digit_place(square)] = "0"
        digits[digit_place(move[1])] = chr(ord(piece) + 2) if promotes and piece in "12" else piece
        return self.name_of("".join(digits), "w" if name[-1] == "b" else "b")

    def children_of(self, name, lines):
        """The positions behind the legal moves, by move, from the lines of `moves`."""
        children = {}
        for line in lines:
            start, end, captures, promotes = line.split()
            jumped = [] if captures == "-" else [int(captures[i + 1:i + 4]) for i in range(0, len(captures), 4)]
            move = (int(start), int(end))
            # Of two routes between the same squares the first is the one that a book plays.
            children.setdefault(move, self.child_name(name, move, jumped, promotes == "1"))
        return children

    def grow(self, names):
        """Gives each of these positions its moves, and their positions their scores."""
        answers = self.lab.ask([f"moves {self.nodes[name].options}" for name in names], 8)
        options, children = {}, {}
        for name, answer in zip(names, answers):
            children[name] = self.children_of(name, answer)
            for move, child in children[name].items():
                options.setdefault(child, self.options_behind(name, move))
        first = self.lab.search(options, FIRST_DEPTH, 16)
        for name in names:
            ranked = sorted(children[name].items(), key=lambda item: (first[item[1]], item[0]))[:FIRST_BEST]
            best = first[ranked[0][1]] if ranked else 0
            children[name] = {move: child for move, child in ranked if first[child] <= best + FIRST_MARGIN}
        kept = {child for moves in children.values() for child in moves.values()}
        final = self.lab.search({child: options[child] for child in options if child in kept}, self.depth - 1, 1)
        for name in names:
            self.nodes[name].moves = children[name]
            for child in children[name].values():
                self.nodes.setdefault(child, Node(options[child], final[child]))

    def options_behind(self, name, move):
        options = self.nodes[name].options[:-1]
        return options + ("" if options.endswith("'") else " ") + algebraic(move[0]) + algebraic(move[1]) + "'"

    def values(self):
        """A procedure that tells the value of a position by all that has been searched behind it."""

        @functools.cache
        def value(name):
            moves = self.nodes[name].moves
            return max(-value(child) for child in moves.values()) if moves else self.nodes[name].score

        return value

    def lines(self):
        """The lines of the book in the order of the file: moves, positions behind them, what the line has lost."""
        value = self.values()

        def walk(name, path, loss):
            node = self.nodes[name]
            margin, width = next((margin, width) for ply, margin, width in OFFERED if len(path) < ply)
            offered = sorted((node.moves or {}).items(), key=lambda item: (value(item[1]), item[0]))[:width]
            for move, child in offered:
                lost = value(child) - value(offered[0][1])
                if lost <= margin:
                    line = path + [move]
                    yield line, child, loss + lost
                    yield from walk(child, line, loss + lost)

        return list(walk(self.root, [], 0))

    def grow_to(self, moves):
        lines = []
        while len(lines) < moves:
            cost = {self.root: 0} if not lines else {}
            for line, name, lost in lines:
                if self.nodes[name].moves is None:
                    cost[name] = min(cost.get(name, 10**6), lost + PLY_COST * len(line))
            if not cost:
                sys.exit(f"make_books.py: {self.variant}: nothing left to grow at {len(lines)} moves")
            self.grow(sorted(cost, key=lambda name: (cost[name], name))[:ROUND])
            lines = self.lines()
            print(f"{self.variant}: {len(lines)} moves, {len(self.nodes)} positions", flush=True)
        return lines

    def section(self, lines):
        """The lines of a section of a book."""
        head = [f"{key}={value}" for key, value in self.head.items()]
        body, names, length = [], [], 0
        for path, _, _ in sorted(lines, key=lambda line: line[0]):
            field = book_key(path[-1]) + (self.first if len(path) % 2 == 1 else "wb".replace(self.first, ""))
            if len(path) == length + 1 and body:
                body[-1] += field
            else:
                body.append(" " * 5 * (len(path) - 1) + field)
            length = len(path)
            if length <= NAMED_PLIES:
                names.append((length, " ".join(map(book_key, path)) + "'" + " ".join(self.shown(path)) + "'"))
        return [*head, "start", *body, "names", *(name for _, name in sorted(names)), "end"]

    def shown(self, path):
        """The moves of a line as players write them."""
        text, name = [], self.root
        for move in path:
            before, name = name, self.nodes[name].moves[move]
            separator = "-" if count_pieces(before) == count_pieces(name) else "x"
            text.append(separator.join(str(numeric(square)) for square in move))
        return text


def read_definition(variant):
    """The head of a section for a definition: its rule values, its name, and the start in digits."""
    lines = (VARIANTS / f"{variant}.ini").read_text().splitlines()
    head = {"Variant": lines[0]}
    for key, _, value in (line.partition("=") for line in lines[1:]):
        if "Help" not in key and key != "END":
            head[key] = value
    if head["Setup"] != "normal" or head["PiecesOnBlack"] == "2":
        sys.exit(f"make_books.py: {variant} does not begin from the normal start")
    return head | {"Setup": normal_start(1)}  # games of the other colour have it so too


def write_book(variant, sections):
    text = "\r\n".join(["TAVLON12 Version=0.89", *(line for section in sections for line in section)]) + "\r\n"
    folder = ROOT / "data" / "books"
    folder.mkdir(exist_ok=True)
    (folder / f"{variant}.bok").write_bytes(text.encode("ascii"))


def is_legal_elsewhere(lab, path):
    """Whether a line can be played in all variants that begin like the one it comes from."""
    play = shlex.quote(" ".join(algebraic(start) + algebraic(end) for start, end in path))
    variants = [file.stem for file in sorted(VARIANTS.glob("*.ini")) if begins_alike(file)]
    answers = lab.ask([f"moves {options_of(variant)} --play {play}" for variant in variants], len(variants))
    return not any(answer[-1].startswith("error") for answer in answers)


def begins_alike(file):
    """The normal start, White to begin, and no men that capture from afar, which they can at once."""
    head = dict(line.split("=", 1) for line in file.read_text().splitlines() if "=" in line)
    keys = ("Setup", "PiecesOnBlack", "BlackStarts", "AntiMode", "ManCapMoveKing")
    return [head[key] for key in keys] == ["normal", "1", "0", "0", "0"]


def write_openings(tree, lines):
    """Lines that are legal in all variants which begin like this one, and balanced after a deep search."""
    ends = {}
    for path, name, _ in lines:
        if len(path) in OPENING_PLIES and name not in ends and is_legal_elsewhere(tree.lab, path):
            ends[name] = path
    scores = tree.lab.search({name: tree.nodes[name].options for name in ends}, OPENING_DEPTH, 1)
    even = sorted(path for name, path in ends.items() if abs(scores[name]) <= OPENING_BALANCE)
    if len(even) < LEAST_OPENINGS:
        sys.exit(f"make_books.py: only {len(even)} openings are balanced")
    games = []
    for path in even:
        moves = tree.shown(path)
        pairs = [f"{i // 2 + 1}. {moves[i]} {moves[i + 1]}" for i in range(0, len(moves), 2)]
        games += [f'[Event "{" ".join(moves)}"]', '[Result "*"]', "", " ".join(pairs) + " *", ""]
    (ROOT / "data" / "opening.pdn").write_bytes("".join(line + "\r\n" for line in games).encode("ascii"))


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition(":")[2])
    parser.add_argument("--lab", default=str(ROOT / "build" / "release" / "bin" / "tavlon12-lab"))
    parser.add_argument("--jobs", default="100%")
    parser.add_argument("--parallel", default="")
    parser.add_argument("--scores", type=pathlib.Path)
    parser.add_argument("books", nargs="*", default=list(BOOKS))
    arguments = parser.parse_args()
    lab = Lab(arguments)
    sections = {}
    for variant in arguments.books:
        moves, depth = BOOKS[variant]
        tree = Tree(lab, variant, depth)
        lines = tree.grow_to(moves)
        sections[variant] = tree.section(lines)
        write_book(variant, [sections[variant]])
        if variant == CANADIAN:
            write_openings(tree, lines)
    if CANADIAN in sections and AMERICAN in sections:
        write_book(CANADIAN, [sections[CANADIAN], sections[AMERICAN]])


if __name__ == "__main__":
    main()
