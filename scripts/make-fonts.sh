#!/usr/bin/env bash
# Makes the typeface in Wexel/Resources/Fonts once more. No build runs this; it needs npm and the Debian packages
# fonttools and python3-brotli. What is changed, and why, stands in Wexel/Resources/Fonts/README.md.
set -euo pipefail
package=@fontsource/hanken-grotesk version=5.3.0
fonts=$(cd "$(dirname "$0")/../Wexel/Resources/Fonts" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export SOURCE_DATE_EPOCH=1735689600 # the same files every time
cd "$work"
tar xzf "$(npm pack --silent "$package@$version")"
cp package/LICENSE "$fonts/OFL.txt"

/usr/bin/python3 - "$fonts" "$package $version" <<'PYTHON'
import sys
from fontTools import merge

folder, source = sys.argv[1:]
for style, weight in {"Regular": 400, "Medium": 500, "SemiBold": 600, "Bold": 700}.items():
    files = [f"package/files/hanken-grotesk-{part}-{weight}-normal.woff2" for part in ("latin", "latin-ext")]
    font = merge.Merger(merge.Options(drop_tables=["STAT", "prep", "gasp"])).merge(files)
    font["OS/2"].usWeightClass = weight
    names = font["name"]
    notice = names.getDebugName(0)
    names.names = []
    texts = {0: notice, 1: f"Wexel Grotesk {style}", 2: "Regular", 3: f"{source};WexelGrotesk-{style}",
             4: f"Wexel Grotesk {style}", 5: "Version 3.013", 6: f"WexelGrotesk-{style}",
             10: f"Hanken Grotesk, reduced and renamed; from {source}",
             13: "This Font Software is licensed under the SIL Open Font License, Version 1.1.",
             14: "https://scripts.sil.org/OFL", 16: "Wexel Grotesk", 17: style}
    for number, text in texts.items():
        names.setName(text, number, 3, 1, 0x409)
    font.save(f"{folder}/HKGrotesk-{style}.otf")
PYTHON
