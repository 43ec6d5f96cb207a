"""The pages lead to one another: no link is dead, and the first page names all others. The README
has the lines of the page on builds."""
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "scripts"))
import site_filter  # noqa: E402

PAGES = [*ROOT.glob("*.md"), ROOT / "schemas" / "README.md", *(ROOT / "docs").rglob("*.md")]
LINK = re.compile(r"\]\(([^)#:]*)(?:#([^)]+))?\)")


def links(page):
    prose = "".join(site_filter.FENCED.split(page.read_text(encoding="utf-8"))[::2])
    return [((page.parent / link).resolve() if link else page, section)
            for link, section in LINK.findall(prose)]


class Pages(unittest.TestCase):
    def test_links_lead_to_files_and_sections(self):
        for page in PAGES:
            for target, section in links(page):
                with self.subTest(page, target=target, section=section):
                    self.assertTrue(target.is_file())
                    if section:
                        headings = site_filter.HEADING.findall(target.read_text(encoding="utf-8"))
                        self.assertIn(section, [site_filter.anchor(name) for _, name in headings])

    def test_the_first_one_names_all(self):
        first = ROOT / "docs" / "README.md"
        self.assertEqual(set(PAGES) - {target for target, _ in links(first)}, {first, ROOT / "README.md"})

    def test_the_readme_has_the_lines_of_the_build(self):
        project = (ROOT / "docs" / "in-your-build.md").read_text(encoding="utf-8")
        readme = (ROOT / "README.md").read_text(encoding="utf-8")
        blocks = re.findall(r"```cmake\n(.*?)```", readme, re.S)
        self.assertEqual([block in project.replace("\n> ", "\n") for block in blocks], [True])


if __name__ == "__main__":
    unittest.main()
