#!/usr/bin/env python3
"""Checks the links of HTML and Markdown pages: check_links.py FOLDER_OR_PAGE...

A link inside leads to a file that is there, and to a place in it that has the name. A page loads nothing from elsewhere.
"""
import functools
import re
import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

ELSEWHERE = re.compile(r"([a-z]+:)?//")
NO_FILE = re.compile(r"[a-z]+:|//")


class HtmlPage(HTMLParser):
    """The links of a page, what it loads, and the names of its places."""

    def __init__(self, text):
        super().__init__()
        self.links, self.loads, self.names = [], [], set()
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        for key, value in attrs:
            if key in ("id", "name"):
                self.names.add(value)
            elif key == "src" or key == "href" and tag == "link":
                self.loads.append(value)
            elif key == "href":
                self.links.append(value)


class MarkdownPage:
    def __init__(self, text):
        self.loads = re.findall(r"!\[[^]]*\]\(([^)\s]+)\)", text)
        self.links = re.findall(r"\]\(([^)\s]+)\)", text)
        headings = re.findall(r"^#+ (.*)$", text, re.MULTILINE)
        self.names = {re.sub(r"[^\w\- ]", "", heading).lower().replace(" ", "-") for heading in headings}


@functools.cache
def read(path):
    return (MarkdownPage if path.suffix == ".md" else HtmlPage)(path.read_text(encoding="utf-8"))


def leads_somewhere(path, link):
    parts = urlsplit(link)
    target = (path.parent / unquote(parts.path) if parts.path else path).resolve()
    if parts.fragment and target.suffix in (".html", ".md") and target.is_file():
        return unquote(parts.fragment) in read(target).names
    return target.exists()


def main():
    faults = []
    count = 0
    for name in map(Path, sys.argv[1:]):
        pages = [name] if name.is_file() else [path for path in name.rglob("*") if path.suffix in (".html", ".md")]
        for path in sorted(pages):
            page = read(path)
            faults += [f"{path} loads {load} from elsewhere" for load in page.loads if ELSEWHERE.match(load)]
            inside = [link for link in page.links + page.loads if not NO_FILE.match(link)]
            faults += [f"{path}: {link} leads nowhere" for link in inside if not leads_somewhere(path, link)]
            count += len(inside)
    print("\n".join(faults) or f"{count} links lead to where they should")
    sys.exit(bool(faults) or count == 0)


if __name__ == "__main__":
    main()
