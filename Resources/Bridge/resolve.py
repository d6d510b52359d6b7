"""Gives the Text+ titles of DaVinci Resolve a font: resolve.py FAMILY STYLE

On the Fusion page these are the selected titles of the composition, elsewhere those that are selected in the timeline
or lie under the playhead. The last line of the output is the answer: OK|COUNT, with a note after a further |, or
ERR|TEXT, where a text that begins with @ is a code with its arguments after colons.

KERLUNE_UNDO_NAME names the undo step, KERLUNE_RESOLVE_PATH the folder of Resolve.
"""

import importlib
import os
import sys

MODULE = "DaVinciResolveScript"
TITLE = "TextPlus"
UPRIGHT_STYLES = ["regular", "roman", "book", "normal", "medium"]  # what comes first where a style is missing


class Refusal(Exception):
    """A code and its arguments."""

    def __init__(self, code, *arguments):
        super().__init__(code_text(code, *arguments))


def one_line(text):
    return " ".join(str(text).split())


def code_text(code, *arguments):
    return ":".join(["@" + code] + [one_line(argument).replace(":", "\u2236") for argument in arguments])


def module_folders():
    api = os.environ.get("RESOLVE_SCRIPT_API")
    place = os.environ.get("KERLUNE_RESOLVE_PATH")
    return [os.path.join(folder, "Modules") for folder in (
        api,
        place and os.path.join(place, "Developer", "Scripting"),
        "/opt/resolve/Developer/Scripting",
        "/Library/Application Support/Blackmagic Design/DaVinci Resolve/Developer/Scripting",
    ) if folder]


def scripting_module():
    sys.path += module_folders()
    try:
        return importlib.import_module(MODULE)
    except (Exception, SystemExit) as error:  # the module ends the program where it lacks a library
        raise Refusal("RESOLVE_NO_MODULE", one_line(error) or type(error).__name__) from error


def running_resolve():
    module = scripting_module()
    try:
        resolve = module.scriptapp("Resolve")
    except Exception as error:
        raise Refusal("RESOLVE_UNREACHABLE") from error
    if not resolve:
        raise Refusal("RESOLVE_UNREACHABLE")
    return resolve


def values(table):
    """The values of what Resolve gives as a table: a dictionary with numbers as keys, or a list."""
    if not table:
        return []
    return [table[key] for key in sorted(table)] if isinstance(table, dict) else list(table)


def titles_of_composition(composition, only_selected):
    return values(composition.GetToolList(only_selected, TITLE))


def titles_of_fusion_page(resolve):
    composition = resolve.Fusion().GetCurrentComp()
    if not composition:
        raise Refusal("RESOLVE_NO_COMP")
    titles = titles_of_composition(composition, True)
    if not titles:
        raise Refusal("RESOLVE_NO_TEXTPLUS")
    return [(composition, titles)]


def selected_items(timeline):
    """Empty in versions that do not tell."""
    ask = getattr(timeline, "GetSelectedItems", None)
    return values(ask()) if callable(ask) else []


def titles_of_item(item):
    titles = []
    for index in range(1, int(item.GetFusionCompCount() or 0) + 1):
        composition = item.GetFusionCompByIndex(index)
        found = titles_of_composition(composition, False) if composition else []
        if found:
            titles.append((composition, found))
    return titles


def titles_of_timeline(resolve):
    project = resolve.GetProjectManager().GetCurrentProject()
    timeline = project.GetCurrentTimeline() if project else None
    if not timeline:
        raise Refusal("RESOLVE_NO_TIMELINE")
    selected = selected_items(timeline)
    under_playhead = timeline.GetCurrentVideoItem()
    items = selected or ([under_playhead] if under_playhead else [])
    titles = [title for item in items for title in titles_of_item(item)]
    if not titles:
        raise Refusal("RESOLVE_NO_TEXTPLUS" if selected else "RESOLVE_SELECT_TITLE")
    return titles


def closest_style(wanted, styles):
    """The style of that name however it is spelt, else the one most like it; Resolve shows nothing of a wrong one."""
    def spelt(style):
        return "".join(character for character in style.lower() if character.isalnum())

    def words(style):
        return set(style.lower().split())

    def is_slanted(style):
        return "italic" in style.lower() or "oblique" in style.lower()

    def distance(style):
        name = style.lower()
        is_other_slant = is_slanted(style) != is_slanted(wanted)
        rank = UPRIGHT_STYLES.index(name) if name in UPRIGHT_STYLES else len(UPRIGHT_STYLES)
        return is_other_slant, -len(words(style) & words(wanted)), rank, style

    same = [style for style in styles if spelt(style) == spelt(wanted)]
    return min(same or styles, key=distance), bool(same)


def known_font(resolve, family, style):
    """The font under the names that Resolve has for it, and whether it is that very style."""
    manager = resolve.Fusion().FontManager
    fonts = manager.GetFontList() if manager else None
    if not fonts:
        return family, style, True  # it does not tell
    names = [name for name in fonts if name == family] or [name for name in fonts if name.lower() == family.lower()]
    if not names:
        raise Refusal("RESOLVE_UNKNOWN_FONT", family)
    styles = list(fonts[names[0]] or [])
    if style in styles or not styles:
        return names[0], style, True
    used, is_same = closest_style(style, styles)
    return names[0], used, is_same


def has_taken(title, family, style):
    try:
        title.SetInput("Font", family)
        title.SetInput("Style", style)
        return title.GetInput("Font") == family and title.GetInput("Style") == style
    except Exception:
        return False


def change(composition, titles, family, style):
    """The number of titles that have the font now."""
    composition.StartUndo(os.environ.get("KERLUNE_UNDO_NAME", ""))
    changed = 0
    try:
        for title in titles:
            changed += has_taken(title, family, style)
    finally:
        composition.EndUndo(True)
    return changed


def answer(arguments):
    if len(arguments) != 2 or not all(arguments):
        raise Refusal("RESOLVE_ARGS")
    family, style = arguments
    resolve = running_resolve()
    on_fusion_page = resolve.GetCurrentPage() == "fusion"
    titles = titles_of_fusion_page(resolve) if on_fusion_page else titles_of_timeline(resolve)
    family, used, is_same = known_font(resolve, family, style)
    changed = sum(change(composition, found, family, used) for composition, found in titles)
    if not changed:
        raise Refusal("RESOLVE_REFUSED")
    note = "" if is_same else "|" + code_text("RESOLVE_STYLE_SUBSTITUTED", style, used)
    return f"OK|{changed}{note}"


def main():
    sys.stdout.reconfigure(encoding="utf-8", errors="replace")
    try:
        line = answer(sys.argv[1:])
    except Exception as error:
        line = "ERR|" + (one_line(error) or type(error).__name__)
    print("\n" + line, flush=True)  # what was printed before may not have ended its line


if __name__ == "__main__":
    main()
