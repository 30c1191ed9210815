#!/usr/bin/env python3
"""check_links.py SITE [GENERATED...]: every link within a built site leads to a file and to a place in it.

Links to GENERATED files are let pass, which another command adds to the site.
"""

import html.parser
import pathlib
import re
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.links, self.places = [], set()
        self.feed(path.read_text(encoding='utf-8'))

    def handle_starttag(self, tag, attributes):
        fields = dict(attributes)
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
