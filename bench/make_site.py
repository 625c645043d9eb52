#!/usr/bin/env python3
"""Writes a web site of a given size, the same bytes every time.

Page 0 is index.html; the others lie, with the other files, in the folders. Page i links to pages
4i+1 to 4i+4, so that every page is reached from the index; the rest of its references go to pages
and files all over the site, one in 200 to a name that is not there. A page never makes one
reference twice. When the site has fewer names than a page makes references, names that are not
there fill up.
"""

import argparse
import os
import random

FAN_OUT = 4
INVALID_ONE_IN = 200
LINE_END = "\r\n"

# Small on purpose: no tool should lose time on bytes that carry no reference.
OTHER_FILE = b"GIF89a\x01\x00\x01\x00\x80\x00\x00\xff\xff\xff\x00\x00\x00,\x00\x00\x00\x00" \
             b"\x01\x00\x01\x00\x00\x02\x02D\x01\x00;"

PROSE = LINE_END.join((
    "The ferry leaves at seven and the baker is awake by four, so the first loaves",
    "are always for the crew. Later the market fills, the bells ring, and nobody who",
    "has a bench in the sun looks at a clock before the evening boat comes in.", ""))


class Site:
    """The names of a site: pages[0] is the index, each name a path relative to the site."""

    def __init__(self, pages, files, folders):
        names = [f"section-{number:04d}" for number in range(folders)]
        self.folders = names
        self.pages = ["index.html"] + [
            f"{names[number % folders]}/page-{number:05d}.html" for number in range(1, pages)]
        self.files = [
            f"{names[number % folders]}/image-{number:05d}.gif" for number in range(files)]


def reference(source, target):
    """The text with which the page `source` names the file `target`."""
    folder, _, _ = source.rpartition("/")
    if not folder:
        return target
    target_folder, _, target_name = target.rpartition("/")
    return target_name if target_folder == folder else "../" + target


def tree_links(site, number):
    first = FAN_OUT * number + 1
    return site.pages[first:first + FAN_OUT]


def targets_of(site, number, count, chance):
    """`count` different files that page `number` names, its part of the tree first."""
    chosen = dict.fromkeys(tree_links(site, number)[:count])
    invalid = 0
    available = len(site.pages) + len(site.files)
    while len(chosen) < count:
        if chance.randrange(INVALID_ONE_IN) == 0 or len(chosen) - invalid == available:
            chosen[f"{chance.choice(site.folders)}/missing-{number:05d}-{invalid:05d}.gif"] = None
            invalid += 1
            continue
        pool = site.files if site.files and chance.random() < 0.5 else site.pages
        chosen[chance.choice(pool)] = None
    return list(chosen)


def element(text):
    if text.endswith(".html"):
        return f'<p><a href="{text}">Further along the coast</a></p>'
    return f'<p><img src="{text}" alt="A view of the harbour"></p>'


def paragraph(size):
    """Prose of about `size` bytes; no half line end is left at its end."""
    room = size - len("<p></p>" + LINE_END)
    if room <= 0:
        return []
    return ["<p>" + (PROSE * (room // len(PROSE) + 1))[:room].rstrip(LINE_END) + "</p>"]


def page_text(title, elements, size):
    """The page, filled up to about `size` bytes with prose spread between its references."""
    lines = ["<html>", "<head>", f"<title>{title}</title>", "</head>", "<body>"]
    foot = ["</body>", "</html>", ""]
    bare = sum(len(line) + len(LINE_END) for line in lines + elements + foot)
    share = (size - bare) // max(len(elements), 1)
    for line in elements:
        lines += [line, *paragraph(share)]
    return LINE_END.join(lines + foot)


def write(path, content):
    with open(path, "wb") as file:
        file.write(content)


def make_site(folder, pages, refs, page_bytes, files, folders):
    """Writes the site into `folder`, which is created; returns the path of its start page."""
    site = Site(pages, files, folders)
    chance = random.Random(f"{pages} {refs} {files} {folders}")
    for name in site.folders:
        os.makedirs(os.path.join(folder, name))
    for number, page in enumerate(site.pages):
        targets = targets_of(site, number, refs, chance)
        elements = [element(reference(page, target)) for target in targets]
        content = page_text(f"Page {number}", elements, page_bytes)
        write(os.path.join(folder, page), content.encode("ascii"))
    for name in site.files:
        write(os.path.join(folder, name), OTHER_FILE)
    return os.path.join(folder, site.pages[0])


def at_least_one(text):
    number = int(text)
    if number < 1:
        raise argparse.ArgumentTypeError("must be at least 1")
    return number


def main():
    parser = argparse.ArgumentParser(description="Writes a web site of a given size.")
    parser.add_argument("--pages", type=at_least_one, default=1000, metavar="N")
    parser.add_argument("--refs", type=int, default=20, metavar="N", help="references of each page")
    parser.add_argument("--page-bytes", type=int, default=8192, metavar="N")
    parser.add_argument("--files", type=int, default=1000, metavar="N",
                        help="files beside the pages")
    parser.add_argument("--folders", type=at_least_one, default=50, metavar="N")
    parser.add_argument("outdir", metavar="OUTDIR", help="a folder that does not exist yet")
    given = parser.parse_args()
    print(make_site(given.outdir, given.pages, given.refs, given.page_bytes, given.files,
                    given.folders))


if __name__ == "__main__":
    main()
