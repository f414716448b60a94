#!/usr/bin/python3
"""The pages of an HTML site as a browser reads them: each parses as HTML5 without one error, and
every link inside the site leads to a page that is there and to an id on it; nothing is fetched from
outside. Usage: site_pages.py DIR. Exits 77 when html5lib is not installed."""
import os
import sys
import urllib.parse

try:
    import html5lib
except ImportError:
    print("html5lib is not installed: skipped")
    sys.exit(77)


def main(folder):
    pages = sorted(name for name in os.listdir(folder) if name.endswith(".html"))
    ids, links, faults = {}, [], []
    for name in pages:
        with open(os.path.join(folder, name), "rb") as f:
            data = f.read()
        parser = html5lib.HTMLParser(strict=True, namespaceHTMLElements=False)
        try:
            tree = parser.parse(data, transport_encoding="utf-8")
        except html5lib.html5parser.ParseError as e:
            faults.append(f"{name}: {e}")
            continue
        ids[name] = {e.get("id") for e in tree.iter() if e.get("id")}
        for e in tree.iter():
            if e.get("src") is not None:
                faults.append(f"{name}: loads {e.get('src')}")
            if e.tag == "a" and e.get("href") is not None:
                links.append((name, e.get("href")))
    for name, href in links:
        target = urllib.parse.urlsplit(href)
        if target.scheme or target.netloc or href.startswith("/"):
            faults.append(f"{name}: {href} leads out of the site")
            continue
        page = target.path or name
        if page not in ids:
            faults.append(f"{name}: {href} leads to no page")
        elif target.fragment and target.fragment not in ids[page]:
            faults.append(f"{name}: {href} leads to no anchor")
    for fault in faults[:20]:
        print("FAIL:", fault)
    print(f"{len(pages)} pages, {len(links)} links, {len(faults)} faults")
    return 1 if faults or not pages else 0


sys.exit(main(sys.argv[1]))
