#!/usr/bin/python3
"""Compares the templates that extract elements with html5lib and soupsieve on generated pages.

    compare_elements.py [--pages N] [--seed N] COMMAND...

COMMAND runs tests/templaterun; the names of its two files are put behind it. Every page leaves out end tags where HTML allows it,
sometimes also those of <b> and <a>. What is compared of each element that a selector selects is its number and the numbers of the
texts within it, in their order. docs/oddities.md names what differs; such pages are not generated. Needs Debian's python3-bs4,
python3-html5lib and python3-soupsieve.
"""
import argparse
import os
import random
import re
import subprocess
import sys
import tempfile

import bs4

PHRASING = ["span", "b", "i", "em", "a", "code", "label", "x-y"]
CLASSES = ["a", "b", "c-d", "E"]
TITLES = ["x", "a b", "caf\u00e9", 'q"q', "1<2", "\u20ac", "a&b"]
# Wine's VBScript cannot write other characters.
CODED = {'"': "&quot;", "<": "&lt;", "&": "&amp;", " ": "&#32;", "x": "&#x78;"}
ALL = ["div", "p", "ul", "li", "dl", "dt", "dd", "table", "tr", "td", "th", "select", "option", "h2", "pre", "section", "br",
       "img", "textarea", "script", *PHRASING]
BY_ATTRIBUTE, BY_SELECTOR = 61335, 61336


class Page:
    """A random page, with a number in every text and in every element that has attributes."""

    def __init__(self, chance):
        self.random = chance
        self.count = 0
        self.unclosed = chance.random() < 0.3
        self.has_unclosed = False
        self.text = "<!DOCTYPE html><html><head><title>t</title></head><body>" + self.flow(0) + "</body></html>"

    def number(self):
        self.count += 1
        return self.count

    def attributes(self):
        chance, parts = self.random, [f"data-n={self.number()}"]
        if chance.random() < 0.4:
            parts.append('class="' + " ".join(chance.sample(CLASSES, chance.randint(1, 2))) + '"')
        if chance.random() < 0.3:
            title = chance.choice(TITLES)
            coded = "".join(CODED[c] if c in CODED and (c in '"<&' or chance.random() < 0.5) else c for c in title)
            parts.append(chance.choice(["title", "TITLE"]) + '="' + coded + '"')
        if chance.random() < 0.1:
            parts.append(chance.choice(["data-x='a>b'", "data-x", "data-x=/u/r?l=1", "data-x = no "]))
        chance.shuffle(parts)
        return " ".join(parts)

    def start(self, name):
        name = name.upper() if self.random.random() < 0.1 else name
        return f"<{name} {self.attributes()}>"

    def end(self, name, may_omit=False):
        return "" if may_omit and self.random.random() < 0.5 else f"</{name}>"

    def words(self):
        tag = self.random.choice(["", "", "", "em", "strong"])
        return f"<{tag}>[{self.number()}]</{tag}>" if tag else f"[{self.number()}]"

    def phrasing(self, depth, without=()):
        result = ""
        for _ in range(self.random.randint(0, 3)):
            kind = self.random.random()
            if kind < 0.5 or depth > 4:
                result += self.words()
            elif kind < 0.6:
                result += self.start(self.random.choice(["br", "img"]))
            elif kind < 0.65:
                result += self.random.choice(["<!-- <p> -->", "<!-->", f"<script {self.attributes()}>'</p><b>'</script>",
                                              f"<textarea {self.attributes()}><p></textarea>"])
            elif kind < 0.7:
                result += self.start("select") + "".join(
                    self.start("option") + self.words() + self.end("option", True)
                    for _ in range(self.random.randint(1, 3))) + "</select>"
            else:
                # An <a> in an element ends one that was opened again around it, and a browser then moves texts.
                no_more = ("a",) if self.has_unclosed and depth > 0 else ()
                name = self.random.choice([each for each in PHRASING if each not in (*without, *no_more)])
                bare = self.random.choice([0, 0, 0, 1, 4]) if name not in ("a", "b") else 0
                result += self.start(name) + f"<{name}>" * bare
                result += self.phrasing(depth + 1, (*without, name) if name in ("a", "b") else without)
                if bare:
                    result += f"</{name}>" * bare + self.words()
                if name in ("a", "b") and self.unclosed and self.random.random() < 0.3:
                    self.has_unclosed = True
                else:
                    result += self.end(name)
        return result

    def table(self, depth):
        result = self.start("table") + "<tbody>"
        for _ in range(self.random.randint(1, 3)):
            result += self.start("tr")
            for _ in range(self.random.randint(1, 3)):
                cell = self.random.choice(["td", "th"])
                result += self.start(cell) + self.flow(depth + 1) + self.end(cell, True)
            result += self.end("tr", True)
        return result + "</table>"

    def flow(self, depth):
        result = ""
        for _ in range(self.random.randint(1, 4 - depth if depth < 3 else 1)):
            kind = self.random.choice(["text", "p", "list", "dl", "table", "block", "phrasing"])
            if kind == "text" or depth > 2:
                result += self.words()
            elif kind == "phrasing":
                result += self.phrasing(depth)
            elif kind == "p":
                # What follows may be anything, so the end tag is only left out before what ends a paragraph.
                result += self.start("p") + self.phrasing(depth) + self.random.choice(["</p>", self.start("p") + self.words() + "</p>"])
            elif kind == "list":
                result += self.start("ul") + "".join(
                    self.start("li") + self.flow(depth + 1) + self.open_p(depth) + self.end("li", True)
                    for _ in range(self.random.randint(1, 3))) + "</ul>"
            elif kind == "dl":
                result += self.start("dl") + "".join(
                    self.start(name) + self.flow(depth + 1) + self.open_p(depth) + self.end(name, True)
                    for name in self.random.choices(["dt", "dd"], k=3)) + "</dl>"
            elif kind == "table":
                result += self.table(depth)
            else:
                name = self.random.choice(["div", "section", "h2", "pre"])
                result += self.start(name) + (self.flow(depth + 1) if name in ("div", "section") else self.phrasing(depth))
                result += self.open_p(depth) if name == "div" else ""
                result += self.end(name)
        return result

    def open_p(self, depth):
        return self.start("p") + self.phrasing(depth) if self.random.random() < 0.3 else ""


def selector(chance, page):
    def compound():
        result = chance.choice([*ALL, "*", "", ""])
        for _ in range(chance.choice([0, 0, 1, 1, 2]) or (not result)):
            title = chance.choice(TITLES)
            quoted = '"' + title.replace("\\", "\\\\") + '"' if '"' not in title else f"'{title}'"
            result += chance.choice(["." + chance.choice(CLASSES), "[title]", f"[title={quoted}]", "[title^=a]", "[TITLE$='b']",
                                     "[title*='<']", "[class~=a]", "[data-x]", f"[data-n='{chance.randint(1, page.count + 1)}']"])
        return result

    def complex_selector():
        result = compound()
        for _ in range(0 if page.has_unclosed else chance.choice([0, 0, 1, 1, 2])):
            result += chance.choice([" ", " > "]) + compound()
        return result

    return ", ".join(complex_selector() for _ in range(chance.choice([1, 1, 1, 2])))


def expected(soup, wanted):
    result, known = [], set()
    for element in soup.select(wanted):
        number = element.get("data-n")
        if number and number not in known:  # not what a browser adds or opens again
            known.add(number)
            texts = [each for each in element.find_all(string=True) if not isinstance(each, bs4.Comment)]
            result.append((int(number), re.findall(r"\[(\d+)\]", "".join(texts))))
    return result


def found(text):
    pieces = [piece for piece in text.split("\r\n") if not re.match(r"<[\w-]+>|$", piece)]
    return [(int(re.search(r"data-n=(\d+)", piece)[1]), re.findall(r"\[(\d+)\]", piece)) for piece in pieces]


def run_templates(command, records):
    with tempfile.TemporaryDirectory(dir=".") as folder:
        given, answer = os.path.join(folder, "input"), os.path.join(folder, "output")
        with open(given, "w", encoding="utf-8", newline="") as file:
            file.write("".join("\x1f".join(map(str, record)) + "\x1e" for record in records))
        subprocess.run([*command, given, answer], check=True, stdin=subprocess.DEVNULL)
        with open(answer, encoding="utf-8", newline="") as file:
            results = [each.split("\x1f", 1)[1] for each in file.read().split("\x1e")[:-1]]
    if len(results) != len(records):
        sys.exit(f"{len(results)} results for {len(records)} records")
    return results


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--pages", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("command", nargs=argparse.REMAINDER)
    arguments = parser.parse_args()
    chance = random.Random(arguments.seed)
    cases = []
    for _ in range(arguments.pages):
        page = Page(chance)
        soup = bs4.BeautifulSoup(page.text, "html5lib")
        for _ in range(6):
            wanted = selector(chance, page)
            for _ in range(chance.choice([0, 12, 12])):
                if expected(soup, wanted):
                    break
                wanted = selector(chance, page)
            cases.append(((BY_SELECTOR, page.text, wanted), expected(soup, wanted)))
        name = chance.choice(ALL)
        cases.append(((BY_ATTRIBUTE, page.text, name, "", ""), expected(soup, name)))
        cases.append(((BY_ATTRIBUTE, page.text, "", "title", "a b"), expected(soup, '[title="a b"]')))
    results = run_templates(arguments.command, [record for record, _ in cases])
    different = 0
    for (record, wanted), result in zip(cases, results):
        try:
            actual = found(result)
        except TypeError:
            actual = [result]
        if actual != wanted:
            different += 1
            if different <= 3:
                print(f"template {record[0]}, {record[2:]}\n  page: {record[1]}")
                print(f"  missing {[each for each in wanted if each not in actual]}")
                print(f"  too many {[each for each in actual if each not in wanted]}")
    selecting = sum(bool(wanted) for _, wanted in cases)
    print(f"{len(cases)} comparisons, {selecting} of them select something, {different} differ")
    sys.exit(different > 0 or selecting * 2 < len(cases))


if __name__ == "__main__":
    main()
