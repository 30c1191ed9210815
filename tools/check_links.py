#!/usr/bin/env python3
"""check_links.py SITE [GENERATED...]: every link within a built site leads to a file and to a place in it.

Links to GENERATED files are let pass, which another command adds to the site.
"""

import html.parser
import pathlib
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


def main(site, generated):
    pages = {path.resolve(): Page(path) for path in site.rglob('*.html')}
    broken = []
    for path, page in pages.items():
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
    print(f'{len(pages)} pages, {sum(len(page.links) for page in pages.values())} links, {len(broken)} broken')
    return 1 if broken or len(pages) < 50 else 0


if __name__ == '__main__':
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2:]))
