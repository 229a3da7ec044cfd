"""Docstrings as reStructuredText, with links to what they name."""

import re
import textwrap

# What may be a name of the interface: in backticks, before "()", or a word of the text. Strings in
# quotation marks are values.
_NAMES = re.compile(
    r"`(?P<quoted>[^`]+)`|(?P<value>\"[^\"`]*\")|(?P<word>[A-Za-z_]\w*(?:\.[A-Za-z_]\w*)*)(?P<call>\(\))?|(?P<other>.)",
    re.S,
)
# What may stand beside marked-up text, or nothing; between it and anything else goes APART.
_BEFORE, _AFTER = " '\"([{<-/:", " '\")]}>-/\\:.,;!?"
APART = "\\ "
_SPECIAL = re.compile(r"([\\*|`])")


class Links:
    """Knows the interface's names, and where each is described.

    `rows` are the module's declarations. A name is looked up as one of a class, its bases included,
    before it is looked up in the module.
    """

    def __init__(self, rows):
        self.rows = {row["name"]: row for row in rows}
        self.members = {
            name: {member["name"]: member["kind"] for member in row.get("members", ())}
            for name, row in self.rows.items()
        }

    def chain(self, name):
        """The class and its bases, nearest first."""
        names = []
        while name:
            names.append(name)
            name = self.rows[name]["base"]
        return names

    def role(self, name, owner=None):
        """The link to a name as seen from a class, or None."""
        first, _, rest = name.partition(".")
        if rest:
            owner, name = (first, rest) if first != "Tessora" else (None, rest)
            if first != "Tessora" and self.rows.get(first, {}).get("kind") != "class":
                return None
        for each in self.chain(owner) if owner else ():
            kind = self.members[each].get(name)
            if kind:
                return f":py:{'meth' if kind == 'method' else 'attr'}:`~Tessora.{each}.{name}`"
        row = self.rows.get(name) if not rest or first == "Tessora" else None
        if row:
            roles = {"class": "class", "function": "func", "value": "data"}
            return f":py:{roles[row['kind']]}:`~Tessora.{name}`"
        # A method that only one class declares needs no name of a class before it.
        others = [each for each in self.members if self.members[each].get(name) == "method"]
        return f":py:meth:`~Tessora.{others[0]}.{name}`" if len(others) == 1 else None


def text(doc, links, owner=None, own=()):
    """A docstring's blocks; names in `own`, such as the parameters, are no links."""
    blocks = []
    for block in doc.strip("\n").split("\n\n"):
        # An empty line inside an example does not end it.
        if blocks and _is_code(block) and _is_code(blocks[-1]):
            blocks[-1] += "\n\n" + block
        else:
            blocks.append(block)
    return "\n\n".join(_block(block, links, owner, own) for block in blocks)


def _is_code(block):
    return block.startswith(("    ", ">>> "))


def _block(block, links, owner, own):
    rows = block.split("\n")
    if _is_code(block):
        code = textwrap.dedent(block).split("\n")
        return ".. code-block:: python\n\n" + "\n".join(f"   {row}".rstrip() for row in code)
    if rows[0].startswith("- "):
        return "\n".join(row[:2] + _inline(row[2:], links, owner, own) for row in rows)
    return _inline(" ".join(block.split()), links, owner, own)


def _inline(line, links, owner, own):
    parts = []
    for match in _NAMES.finditer(line):
        quoted, word = match.group("quoted"), match.group("word")
        link = None
        if quoted is not None:
            link = links.role(quoted, owner) if quoted not in own else None
            link = link or f"``{quoted}``"
        elif match.group("value"):
            link = f"``{match.group()}``"
        elif word and word not in own and (match.group("call") or _looks_like_a_name(word)):
            link = links.role(word, owner)
        if link:
            before, after = line[: match.start()][-1:], line[match.end() : match.end() + 1]
            parts += ["" if before in _BEFORE else APART, link]
            parts.append("" if after in _AFTER else APART)
        else:
            parts.append(_escaped(match.group()))
    return "".join(parts)


def _looks_like_a_name(word):
    return "." in word or "_" in word.strip("_") or re.search("[a-z][A-Z]", word)


def _escaped(plain):
    plain = _SPECIAL.sub(r"\\\1", plain)
    # At its end an underscore would make a word a link.
    return re.sub(r"_+$", lambda match: "\\_" * len(match.group()), plain)


def sentence(doc):
    """An attribute's text as a sentence: the declarations of short ones are phrases."""
    doc = doc.strip()
    first = doc[:1].upper() + doc[1:] if re.match(r"[a-z]+\b(?![_.(])", doc) else doc
    return first if first.endswith((".", ":", "!", "?")) else first + "."


def first_sentence(doc):
    paragraph = " ".join(doc.strip().split("\n\n")[0].split())
    return re.split(r"(?<=[.;])\s", paragraph)[0].rstrip(".;") + "."
