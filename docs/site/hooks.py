"""What the manual has beside the pages and pictures of docs/: the programs of examples/, and the API reference."""
import json
import re
import shutil
from pathlib import Path

from mkdocs.structure.files import File

TOP = Path(__file__).resolve().parents[2]
SHOWN = (".md", ".png", ".svg", ".css", ".js")
LANGUAGES = {".c": "c", ".h": "c", ".cpp": "cpp", ".py": "python"}
# A paragraph that is only a link to a program. On the site the program follows it.
PROGRAM = re.compile(r"^\[[^]\n]*\]\(\.\./(examples/[^)\n]*)\)$", re.MULTILINE)


def on_files(files, config):
    for file in list(files):
        if file.src_uri.startswith("site/") or not file.src_uri.endswith(SHOWN):
            files.remove(file)
    reference = Path(config["extra"]["reference"]).resolve()
    for folder in TOP / "examples", reference:
        for path in sorted(folder.rglob("*")):
            if path.is_file() and "__pycache__" not in path.parts:
                name = path.relative_to(folder.parent).as_posix()
                files.append(File(name, str(folder.parent), config["site_dir"], False))
    return files


def on_page_markdown(markdown, **_):
    """Links out of docs/ are to what stands beside the pages on the site."""
    markdown = PROGRAM.sub(with_program, markdown)
    markdown = markdown.replace("](../examples/", "](examples/")
    return re.sub(r"\]\(\.\./include/([\w-]+)\.(h|hpp)\)", r"](reference/\1_8\2.html)", markdown)


def with_program(match):
    path = TOP / match[1]
    return f"{match[0]}\n\n```{LANGUAGES[path.suffix]}\n{path.read_text(encoding='utf-8')}```"


def on_post_build(config):
    """The index of the search as a script, since a page that is read without a server may not load data."""
    site = Path(config["site_dir"])
    index = json.loads((site / "search/search_index.json").read_text(encoding="utf-8"))
    entries = [[entry["location"], entry["title"], entry["text"]] for entry in index["docs"]]
    text = json.dumps(entries, ensure_ascii=False, separators=(",", ":"))
    (site / "index.js").write_text(f"const searchIndex = {text};\n", encoding="utf-8")
    shutil.rmtree(site / "search")
    for name in "sitemap.xml", "sitemap.xml.gz":  # for sites with an address
        (site / name).unlink()
