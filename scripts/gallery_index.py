"""Writes the index page of the gallery's tour: every state the tour saved
(one row each), in every configuration it ran in (one column each).

Usage: gallery_index.py ROOT CONFIG=LABEL...
ROOT holds one folder per configuration; the page is ROOT/index.html.
"""
import html
import os
import re
import sys


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    root = sys.argv[1]
    configs = [arg.split("=", 1) for arg in sys.argv[2:]]
    states = sorted({name for folder, _ in configs if os.path.isdir(os.path.join(root, folder))
                     for name in os.listdir(os.path.join(root, folder)) if name.endswith(".png")})
    rows = []
    for state in states:
        title = re.sub(r"^\d+-", "", state[:-4]).replace("-", " ", 1)
        cells = []
        for folder, _ in configs:
            path = os.path.join(folder, state)
            if os.path.isfile(os.path.join(root, path)):
                cells.append('<td><a href="%s"><img src="%s" alt="%s"></a></td>'
                             % (html.escape(path), html.escape(path), html.escape(title)))
            else:
                cells.append("<td>missing</td>")
        rows.append("<tr><th>%s</th>%s</tr>" % (html.escape(title), "".join(cells)))
    heads = "".join("<th>%s</th>" % html.escape(label) for _, label in configs)
    page = """<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>Velkan Gallery tour</title>
<style>
body {{ font-family: sans-serif; margin: 1em; }}
table {{ border-collapse: collapse; }}
th, td {{ border: 1px solid #ccc; padding: 4px; vertical-align: top; }}
tbody th {{ text-align: left; white-space: nowrap; }}
img {{ max-width: 30vw; height: auto; display: block; }}
</style></head><body>
<h1>Velkan Gallery tour</h1>
<p>Every page, one drop-down menu in each of the three looks, and every kind of dialog,
as the gallery saved them. Click a picture for its full size.</p>
<table><thead><tr><th>State</th>{heads}</tr></thead><tbody>
{rows}
</tbody></table></body></html>
""".format(heads=heads, rows="\n".join(rows))
    with open(os.path.join(root, "index.html"), "w") as f:
        f.write(page)
    print("demo: the tour's index page is %s (%d states)" % (os.path.join(root, "index.html"), len(states)))


if __name__ == "__main__":
    main()
