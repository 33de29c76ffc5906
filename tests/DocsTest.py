#!/usr/bin/env python3
"""What the pages say is so.

    tests/DocsTest.py ORVANE [--juce]

ORVANE is the built tool, and --juce says that it can show a plug-in. Looked at are README.md,
CONTRIBUTING.md and docs/*.md, by what ordinary Markdown tells of a text:

- a link leads to a file, and to a heading of it;
- in `code`, a path exists, a make target, script, option or preset is there, an orvane command is
  run, and every name is a word of this repository's sources; a word in capitals is the reader's to fill in;
- a table of commands names those that the tool knows;
- a block of cpp or cmake is part of a source, the whole of it where the sentence before links to one,
  "..." standing for what is left out; a block of json is a description without problems;
- lines of any other block are commands, checked as those in `code`; what follows "$ command" is what
  it answers.
"""
import glob
import json
import os
import re
import shlex
import subprocess
import sys
import tempfile

root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
orvane = os.path.abspath(sys.argv[1])
with_juce = "--juce" in sys.argv
problems = []
checked = 0


def read(path):
    with open(os.path.join(root, path), encoding="utf-8") as file:
        return file.read()


def sources():
    """Every text of the repository but the pages, by its path."""
    texts = {}
    for folder, folders, files in os.walk(root):
        folders[:] = [f for f in folders if not f.startswith("build") and f not in (".git", "pictures")]
        for name in files:
            path = os.path.relpath(os.path.join(folder, name), root)
            if re.search(r"\.(h|cpp|cmake|in|json|txt|map|py)$|^(Makefile|\.ci/|scripts/|\.clang)", path) \
                    and path != "tests/DocsTest.py":
                texts[path] = read(path)
    return texts


texts = sources()
words = set(re.findall(r"\w+", "\n".join(texts.values())))
words |= {word for path in texts for word in re.findall(r"\w+", path)}
makefile = read("Makefile")
presets = {preset["name"] for preset in json.loads(read("CMakePresets.json"))["configurePresets"]}
home = tempfile.TemporaryDirectory()
environment = {"PATH": os.path.dirname(orvane) + ":/usr/bin:/bin", "HOME": home.name,
               "TMPDIR": home.name, "LC_ALL": "C.UTF-8"}
# What the pages call a reader's own.
with open(os.path.join(home.name, "my.json"), "w") as file:
    file.write(read("tests/data/example.json"))
open(os.path.join(home.name, "script"), "w").close()


def run(command, folder, given=""):
    return subprocess.run(["bash", "-c", command], cwd=folder, env=environment, input=given, text=True,
                          capture_output=True, timeout=60)


help_text = run("orvane --help", root).stdout


def pattern(shown):
    """What a text with gaps matches, however it is indented."""
    parts = [r"\s+".join(map(re.escape, part.split())) for part in shown.split("...")]
    return r"\s*.*?\s*".join(parts)


class Page:
    def __init__(self, path):
        self.path = path
        self.lines = read(path).split("\n")
        self.number = 0

    def wrong(self, text):
        problems.append(f"{self.path}:{self.number}: {text}")

    def check(self):
        global checked
        block, language, before, columns = None, None, "", []
        for number, line in enumerate(self.lines, 1):
            self.number = number
            checked += 1
            fence = re.match(r"```(\w*)$", line)
            if fence and language is None:
                language, block = fence[1], []
            elif fence:
                self.check_block(language, "\n".join(block) + "\n", before)
                language, block = None, None
            elif language is not None:
                block.append(line)
            elif line.startswith("    ") and (block is not None or not before):
                block = (block or []) + [line[4:]]
            else:
                if block:
                    self.check_block("", "\n".join(block) + "\n", "")
                block = None
                columns = self.check_prose(line, columns)
            if language is None and (line or block is None):
                before = line

    def check_prose(self, line, columns):
        for target in re.findall(r"\]\(([^)]+)\)", line):
            self.check_link(target)
        if not line.startswith("|"):
            self.check_spans(line)
            return []
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        columns = columns or cells
        for name, cell in zip(columns, cells):
            # Names as they are elsewhere are no words of ours.
            if name != "the family's":
                self.check_spans(cell)
        if columns[0] == "command" and cells[0] != "command":
            for span in re.findall(r"`([^`]+)`", cells[0]):
                if not span.isupper():
                    self.check_tool_command(span.split())
        return columns

    def check_link(self, target):
        if re.match(r"https?:", target):
            return
        path, _, anchor = target.partition("#")
        path = os.path.normpath(os.path.join(os.path.dirname(self.path), path)) if path else self.path
        if not os.path.exists(os.path.join(root, path)):
            self.wrong(f"the link leads to no file: {target}")
        elif anchor:
            headings = re.findall(r"^#+ (.*)$", read(path), re.M)
            if anchor not in [re.sub(r"[^\w -]", "", h).lower().replace(" ", "-") for h in headings]:
                self.wrong(f"the link leads to no heading: {target}")

    def check_tool_command(self, parts):
        if parts[0] == "presets" and len(parts) > 1:
            answer = run("orvane presets " + parts[1], home.name).stderr
        else:
            answer = run("orvane drive my.json", home.name, parts[0] + "\n").stdout
        if "unknown command" in answer:
            self.wrong(answer.strip())

    def check_spans(self, text):
        for span in re.findall(r"`([^`]+)`", text):
            if self.check_command(span) or re.match(r"https?:|~/|group\.|#", span):
                continue
            for path in re.findall(r"[\w.*<>-]+(?:/[\w.*<>-]*)+", span):
                self.check_path(path)
            for word in re.findall(r"[A-Za-z_]\w+", re.sub(r"<\w+>", "", span)):
                if not word.isupper() or "_" in word:
                    if word not in words:
                        self.wrong(f"no source has a word {word}")

    def check_path(self, path):
        first = path.split("/")[0]
        if re.fullmatch(r"build-\w+", first):
            if first[6:] not in presets:
                self.wrong(f"no preset builds in {first}")
        elif first == "build":
            built = os.path.join(os.path.dirname(os.path.dirname(orvane)), path[6:])
            if with_juce and not os.path.exists(built):
                self.wrong(f"the build leaves no {path}")
        elif first in os.listdir(root) and "*" not in path and "<" not in path \
                and not os.path.exists(os.path.join(root, path)):
            self.wrong(f"there is no {path}")

    def check_command(self, line):
        """Whether the line is a command that can be checked; what comes after two blanks is said of it."""
        command = re.split(r"\s{2,}|\s+#", line.strip())[0]
        parts = command.split()
        if not parts:
            return False
        if parts[0] == "make" and len(parts) > 1:
            for part in parts[1:]:
                name, equals, _ = part.partition("=")
                known = rf"^{name} \?=" if equals else rf"^[\w -]*\b(?<!-){re.escape(name)}(?!-)\b[\w -]*:"
                if not re.search(known, makefile, re.M):
                    self.wrong(f"the Makefile has no {name}")
        elif parts[:2] == ["cmake", "--preset"]:
            if parts[2] not in presets:
                self.wrong(f"there is no preset {parts[2]}")
        elif parts[0].startswith(("scripts/", ".ci/", "tests/")) and len(parts) > 1:
            self.check_path(parts[0])
        elif parts[0] == "orvane" and len(parts) > 1:
            self.check_orvane(command, parts, line)
        elif parts[0] == "orvane_add_plugin" or parts[0] != "cmake" and parts[0] != "apt-get":
            return False
        return True

    def check_orvane(self, command, parts, line):
        placeholder = any(part.isupper() or "FILE" in part for part in parts)
        if placeholder or len(parts) == 2 and parts[1] != "list":
            spoken = parts[1:3] if parts[1] == "presets" and not parts[2].isupper() else parts[1:2]
            options = re.findall(r"(?<!\w)--?\w+", line)
            if not re.search(r"^  " + " ".join(spoken) + r"\b", help_text, re.M):
                self.wrong(f"the tool's help knows no {' '.join(spoken)}")
            for option in options:
                if option not in help_text:
                    self.wrong(f"the tool's help knows no {option}")
        elif parts[1] not in ("run", "snapshot") or with_juce:
            ran = run(command, home.name)
            if ran.returncode != 0:
                self.wrong(f"{command}: {ran.stdout}{ran.stderr}")

    def check_block(self, language, text, before):
        if language in ("cpp", "cmake"):
            suffix = (".cpp", ".h") if language == "cpp" else (".cmake", "CMakeLists.txt")
            linked = re.search(r"\]\(([\w/.]+\.cpp)\)", before)
            if linked:
                if read(linked[1]) != text:
                    self.wrong(f"this is not {linked[1]} as it stands")
            elif "cmake_minimum_required" in text:
                if self.path != "README.md":
                    self.wrong("EmbedTest.cmake follows the CMakeLists.txt of the README alone")
            elif not any(re.search(pattern(text), source, re.S)
                         for path, source in texts.items() if path.endswith(suffix)):
                self.wrong(f"no source has this {language}")
        elif language == "json":
            with open(os.path.join(home.name, "shown.json"), "w") as file:
                file.write(text)
            ran = run("orvane check shown.json", home.name)
            if ran.returncode != 0:
                self.wrong(ran.stdout + ran.stderr)
        elif language in ("", "sh", "text"):
            for session in re.findall(r"^\$ (.*\n(?:(?!\$ ).+\n)*)", text, re.M):
                self.check_session(*session.split("\n", 1))
            for line in text.split("\n"):
                self.check_command(line)
                for name in re.findall(r"\w+::\w+|\b[A-Z][a-z]+[A-Z]\w+", line):
                    if not words.issuperset(re.findall(r"\w+", name)):
                        self.wrong(f"no source has {name}")
        else:
            self.wrong(f"nothing checks a block of {language}")

    def check_session(self, command, shown):
        answer = run(command, root).stdout
        expected = "".join(".*" if part == "..." else re.escape(part)
                           for part in re.split(r"(\.\.\.)", shown))
        if not re.fullmatch(expected, answer):
            self.wrong(f"{command} answers\n{answer}")


for path in ["README.md", "CONTRIBUTING.md", *sorted(glob.glob("docs/*.md", root_dir=root))]:
    Page(path).check()
for spoken in re.findall(r"^  (\w+(?: (?!COMMAND)[a-z]+)*)|(--\w+)", help_text, re.M):
    if "".join(spoken) not in read("docs/tool.md"):
        problems.append(f"docs/tool.md: says nothing of {''.join(spoken)}")
print(f"{checked} lines" if not problems else "\n".join(problems))
# A check that looked at nothing proves nothing.
sys.exit(1 if problems or not checked else 0)
