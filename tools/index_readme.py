"""Makes the README's links absolute, for the page that a package index shows of it: a relative
picture is shown in a clone and in the source package, but not there.

    python tools/index_readme.py https://HOST/OWNER/NAME REVISION
"""

import re
import sys

from common import ROOT

README = ROOT / "README.md"

_LINK = re.compile(r"(!?)(\[[^\]]*\])\(([^)]+)\)")


def with_absolute_links(text, address, revision):
    def absolute(match):
        bang, label, target = match.groups()
        if re.match(r"#|[a-z]+:", target):
            return match.group()
        view = "raw" if bang else "blob"
        return f"{bang}{label}({address}/{view}/{revision}/{target})"

    return _LINK.sub(absolute, text)


def main():
    address, revision = sys.argv[1:]
    text = README.read_text(encoding="utf-8")
    README.write_bytes(with_absolute_links(text, address.rstrip("/"), revision).encode())


if __name__ == "__main__":
    main()
