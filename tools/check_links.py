#!/usr/bin/env python3
"""check_links.py SITE [GENERATED...]: every link within a built site leads to a file and to a place in it, and
no markup of Markdown is to be read in its pages.

Links to GENERATED files are let pass, which another command adds to the site.
"""

import html.parser
import pathlib
import re
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """Its links, the places they may lead to, and Markdown that was not understood."""
    AS_IT_STANDS = ('code', 'pre', 'script', 'style', 'tt')
    # Bold, code, a row of a table, a link, a heading.
    MARKUP = re.compile(r'\*\*\S|\S\*\*|^\s*\*\*\s*$|`|\|\s[^|]*\s\||\]\(|^#+ ')
    OF_DOXYGEN = {'div': ('fragment',), 'table': ('memname', 'memberdecls')}

    def __init__(self, path):
        super().__init__()
        self.links, self.places, self.markup = [], set(), []
        self.inside = []  # elements, each with whether its text stands as it is
        self.feed(path.read_text(encoding='utf-8'))

    def handle_data(self, data):
        if self.MARKUP.search(data) and not any(self.inside):
            self.markup.append(f'"{data.strip()[:80]}" is markup')

    def handle_endtag(self, tag):
        if (tag in self.AS_IT_STANDS or tag in self.OF_DOXYGEN) and self.inside:
            self.inside.pop()

    def handle_starttag(self, tag, attributes):
        fields = dict(attributes)
        if tag in self.AS_IT_STANDS or tag in self.OF_DOXYGEN:
            self.inside.append(tag in self.AS_IT_STANDS or fields.get('class') in self.OF_DOXYGEN[tag])
        self.places.update(fields[name] for name in ('id', 'name') if fields.get(name))
        self.links += [fields[name] for name in ('href', 'src', 'data') if fields.get(name)]


class Menu:
    """The menus are written by scripts, from tables of names and links."""
    def __init__(self, path):
        self.links = re.findall(r'"([^"\s]+\.html(?:#[^"]*)?)"', path.read_text(encoding='utf-8'))


def main(site, generated):
    pages = {path.resolve(): Page(path) for path in site.rglob('*.html')}
    menus = {path.resolve(): Menu(path) for pattern in ('menudata.js', 'navtreedata.js') for path in site.rglob(pattern)}
    broken = []
    broken += [f'{path.name}: {text}' for path, page in pages.items() for text in page.markup]
    for path, page in [*pages.items(), *menus.items()]:
        for link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme or parts.netloc or parts.path in generated:
                continue
            target = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
            if not target.exists():
                broken.append(f'{path.name}: {link} is not there')
            elif parts.fragment and target in pages and urllib.parse.unquote(parts.fragment) not in pages[target].places:
                broken.append(f'{path.name}: {link} has no such place')
    print(*sorted(set(broken)), sep='\n')
    links = [sum(len(page.links) for page in where.values()) for where in (pages, menus)]
    print(f'{len(pages)} pages, {links[0]} links and {links[1]} in menus, {len(broken)} broken')
    return 1 if broken or len(pages) < 50 or links[1] < 40 else 0


if __name__ == '__main__':
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2:]))
