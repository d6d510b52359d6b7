"""A model of DaVinci Resolve for its script: reads its state from the file KERLUNE_RESOLVE_MODEL, and leaves there what
has become of it. What is not there, Resolve tells by None."""

import atexit
import json
import os

FILE = os.environ["KERLUNE_RESOLVE_MODEL"]
with open(FILE, encoding="utf-8") as file:
    STATE = json.load(file)


def leave_state():
    with open(FILE, "w", encoding="utf-8") as file:
        json.dump(STATE, file)


atexit.register(leave_state)
if STATE.get("lacksLibrary"):
    print("Could not locate module dependencies")
    raise SystemExit(1)


def table(values):
    return {float(index): value for index, value in enumerate(values, 1)}


class Tool:
    def __init__(self, state):
        self.state = state

    def SetInput(self, name, value):
        if self.state.get("throws"):
            raise RuntimeError("locked")
        if not self.state.get("refuses"):
            self.state[name] = value

    def GetInput(self, name):
        return self.state.get(name)


class Composition:
    def __init__(self, state):
        self.state = state

    def GetToolList(self, only_selected=False, kind=None):
        return table([Tool(tool) for tool in self.state["tools"]
                      if (not only_selected or tool.get("selected")) and kind in (None, tool["kind"])])

    def StartUndo(self, name):
        self.state.setdefault("undo", []).append(name)

    def EndUndo(self, keep):
        self.state["undo"].append(keep)


class Item:
    def __init__(self, state):
        self.state = state

    def GetFusionCompCount(self):
        return len(self.state["compositions"])

    def GetFusionCompByIndex(self, index):
        return Composition(self.state["compositions"][index - 1])


class Timeline:
    def __init__(self, state):
        self.state = state
        if "selected" in state:
            self.GetSelectedItems = lambda: [Item(item) for item in state["selected"]]

    def GetCurrentVideoItem(self):
        return Item(self.state["current"]) if self.state.get("current") else None


class FontManager:
    def GetFontList(self):
        return STATE.get("fonts")


class Fusion:
    FontManager = FontManager()

    def GetCurrentComp(self):
        return Composition(STATE["composition"]) if STATE.get("composition") else None


class Project:
    def GetCurrentTimeline(self):
        return Timeline(STATE["timeline"]) if STATE.get("timeline") else None


class ProjectManager:
    def GetCurrentProject(self):
        return None if STATE.get("noProject") else Project()


class Resolve:
    def GetProjectManager(self):
        return ProjectManager()

    def GetCurrentPage(self):
        return STATE["page"]

    def Fusion(self):
        return Fusion()


def scriptapp(name):
    print("Connecting", end="")
    if STATE.get("isSilent"):
        return None
    return Resolve() if name == "Resolve" else None
