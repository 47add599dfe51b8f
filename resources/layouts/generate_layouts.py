#!/usr/bin/env python3
"""Writes the layout archives of this folder from the descriptions below.

The .xml files are committed and are what the library compiles in; this script is a convenience
for editing them: change a description, run it, review the diff. Geometry conventions: 10-unit
side margins, controls 20-22 units high, labels before their controls, and Constraints that let a
control stretch with its section's width (left | top | right) or keep to the right edge
(top | right).
"""
import os

# Constraints bits: the sides of its parent a node keeps its distance to.
LEFT, TOP, RIGHT, BOTTOM = 1, 2, 4, 8
FIXED = LEFT | TOP
STRETCH = LEFT | TOP | RIGHT
ANCHOR_RIGHT = TOP | RIGHT

# Text alignment numbers of the toolkit.
ALIGN_LEFT = 1

Q = "$$$/Quillon/Libraries/IngestDialog/"


def loc(key, default):
    return "(" + Q + key + "=" + default + ")"


SUBVIEW_CHAIN = ["UI_SubView", "UI_Node"]
CONTROL_CHAIN = ["UI_ControlView", "UI_SubView", "UI_Node"]
BUTTON_CHAIN = ["UI_Button", "UI_InteractiveControlView", "UI_ControlView", "UI_SubView", "UI_Node"]
EDIT_CHAIN = ["UI_TextEdit", "UI_InteractiveControlView", "UI_ControlView", "UI_SubView", "UI_Node"]

CLASSES = {
    "UI_SubView": ("fluxui::ui::UI_SubView", ["UI_SubView", "UI_Node"]),
    "UI_StaticText": ("fluxui::controls::UI_StaticText", ["UI_StaticText"] + CONTROL_CHAIN),
    "UI_Divider": ("fluxui::controls::UI_Divider", ["UI_Divider"] + CONTROL_CHAIN),
    "UI_OutlineBox": ("fluxui::controls::UI_OutlineBox", ["UI_OutlineBox"] + CONTROL_CHAIN),
    "UI_Checkbox": ("fluxui::controls::UI_Checkbox", ["UI_Checkbox"] + BUTTON_CHAIN),
    "UI_Popup": ("fluxui::controls::UI_Popup", ["UI_Popup"] + BUTTON_CHAIN),
    "UI_PicturePopup": ("fluxui::controls::UI_PicturePopup", ["UI_PicturePopup"] + BUTTON_CHAIN),
    "UI_PictureButton": ("fluxui::controls::UI_PictureButton", ["UI_PictureButton"] + BUTTON_CHAIN),
    "UI_TextButton": ("fluxui::controls::UI_TextButton", ["UI_TextButton"] + BUTTON_CHAIN),
    "UI_TextEdit_S": ("fluxui::controls::UI_TextEdit_S", ["UI_TextEdit_S"] + EDIT_CHAIN),
    "UI_NumberEdit": ("fluxui::controls::UI_NumberEdit", ["UI_NumberEdit"] + EDIT_CHAIN),
}

# Typed values.
class Rect:
    def __init__(self, left, top, width, height):
        self.values = (left, top, width, height)


class Enum:
    def __init__(self, selected):
        self.selected = selected


class Flags:
    def __init__(self, bits):
        self.bits = bits


class Unsigned:
    def __init__(self, value):
        self.value = value


class Signed:
    def __init__(self, value):
        self.value = value


class Float:
    def __init__(self, value):
        self.value = value


class Double:
    def __init__(self, value):
        self.value = value


class Narrow:
    def __init__(self, text):
        self.text = text


class Items:
    def __init__(self, items):
        self.items = items


def node(cls, rect, id=None, constraints=FIXED, visible=True, enabled=True, children=None,
         class_name=None, **props):
    """A node: its class, rectangle in the parent and properties by section."""
    return {"cls": cls, "rect": rect, "id": id or cls, "constraints": constraints, "visible": visible,
            "enabled": enabled, "children": children or [], "className": class_name, "props": props}


def escape(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def number(value):
    text = repr(float(value))
    return text[:-2] if text.endswith(".0") else text


class Writer:
    def __init__(self):
        self.lines = []

    def line(self, text):
        self.lines.append(text)

    def pair(self, key, value):
        self.line("<prop.pair>")
        self.line("<key>" + key + "</key>")
        self.value(value)
        self.line("</prop.pair>")

    def value(self, value):
        if isinstance(value, bool):
            self.line("<true/>" if value else "<false/>")
        elif isinstance(value, str):
            self.line("<ustring>" + escape(value) + "</ustring>" if value else "<ustring/>")
        elif isinstance(value, Narrow):
            self.line("<string>" + escape(value.text) + "</string>")
        elif isinstance(value, Unsigned):
            self.line("<int type='unsigned' size='32'>%d</int>" % value.value)
        elif isinstance(value, Signed):
            self.line("<int type='signed' size='32'>%d</int>" % value.value)
        elif isinstance(value, Float):
            self.line("<float>" + number(value.value) + "</float>")
        elif isinstance(value, Double):
            self.line("<double>" + number(value.value) + "</double>")
        elif isinstance(value, Rect):
            self.map([(".aptype", Signed(1))] + [(k, Float(v)) for k, v in
                                                 zip(("left", "top", "width", "height"), value.values)])
        elif isinstance(value, Enum):
            self.map([(".aptype", Signed(2)), ("selected", Signed(value.selected))])
        elif isinstance(value, Flags):
            self.map([(".aptype", Signed(4)), ("constraints", Unsigned(value.bits))])
        elif isinstance(value, Items):
            self.line("<array>")
            self.line("<array.type>")
            self.line("<ustring/>")
            self.line("</array.type>")
            for item in value.items:
                self.value(item)
            self.line("</array>")
        elif isinstance(value, list):
            self.map(value)
        else:
            raise TypeError(value)

    def map(self, pairs):
        self.line("<prop.list>")
        for key, value in pairs:
            self.pair(key, value)
        self.line("</prop.list>")


# Properties each section keeps, in the order they are written.
SECTION_KEYS = {
    "UI_StaticText": ["alignment", "fontSize", "multiLine", "text"],
    "UI_Checkbox": ["checked", "text"],
    "UI_TextButton": ["text", "textAlignment"],
    "UI_PictureButton": ["displayBorderAlways"],
    "UI_Popup": ["drawDivider", "popupItems", "popupType"],
    "UI_PicturePopup": ["drawDivider", "popupItems"],
    "UI_TextEdit": ["text"],
    "UI_NumberEdit": ["decimalPlaces", "maxValue", "minValue", "value", "formatUseSeparator"],
    "UI_OutlineBox": ["cornerRadius"],
    "UI_ControlView": ["downState"],
}


def node_pairs(n):
    adapter, chain = CLASSES[n["cls"]]
    props = dict(n["props"])
    sections = []
    for name in chain:
        pairs = [("sectionName", name)]
        if name == "UI_Node":
            pairs += [("bounds", Rect(*n["rect"])), ("id", Narrow(n["id"]))]
            if "tooltip" in props:
                pairs.append(("tooltip", props.pop("tooltip")))
            pairs.append(("visible", n["visible"]))
        elif name == "UI_SubView":
            pairs += [("LayoutChildren", True), ("Constraints", Flags(n["constraints"]))]
            if n["children"] and n["cls"] == "UI_SubView":
                pairs.append(("children", children_pairs(n["children"])))
        elif name == "UI_OutlineBox":
            if "cornerRadius" in props:
                pairs.append(("cornerRadius", props.pop("cornerRadius")))
            if n["children"]:
                pairs.append(("children", children_pairs(n["children"])))
        else:
            if name == "UI_ControlView":
                pairs.append(("enabled", n["enabled"]))
            for key in SECTION_KEYS.get(name, []):
                if key in props:
                    pairs.append((key, props.pop(key)))
        sections.append(pairs)
    if props:
        raise ValueError("%s: properties not written: %s" % (n["id"], sorted(props)))
    if n["children"] and n["cls"] not in ("UI_SubView", "UI_OutlineBox"):
        raise ValueError("%s cannot hold children" % n["id"])
    pairs = [("adapter", adapter)]
    if n["className"]:
        pairs.append(("className", n["className"]))
    sections_pairs = [("count", Unsigned(len(sections)))]
    sections_pairs += [("section-%d" % i, s) for i, s in enumerate(sections)]
    pairs.append(("sections", sections_pairs))
    return pairs


def children_pairs(children):
    pairs = [("count", Unsigned(len(children)))]
    pairs += [("child-%d" % i, node_pairs(c)) for i, c in enumerate(children)]
    return pairs


def write_layout(folder, name, width, height, children):
    root = node("UI_SubView", (0, 0, width, height), constraints=STRETCH, children=children)
    writer = Writer()
    writer.line("<prop.map version='4'>")
    writer.map([("UINodeArchive", Unsigned(1)), ("root", node_pairs(root))])
    writer.line("</prop.map>")
    text = "<?xml version='1.0'?>\r\n" + "".join(line + "\r\n" for line in writer.lines)
    with open(os.path.join(folder, name + ".xml"), "w", newline="") as f:
        f.write(text)


# Shorthands for the controls.
def label(rect, id=None, text="", constraints=STRETCH, **kw):
    return node("UI_StaticText", rect, id, constraints, text=text, alignment=Enum(ALIGN_LEFT), **kw)


def checkbox(rect, id, text="", constraints=STRETCH, checked=False, **kw):
    props = {"text": text}
    if checked:
        props["checked"] = True
    return node("UI_Checkbox", rect, id, constraints, **props, **kw)


def popup(rect, id=None, items=None, constraints=STRETCH, **kw):
    return node("UI_Popup", rect, id, constraints, popupItems=Items(items or []), popupType=Enum(0), **kw)


def text_button(rect, id, text, constraints=ANCHOR_RIGHT):
    return node("UI_TextButton", rect, id, constraints, text=text)


def picture_button(rect, id=None, constraints=FIXED, **kw):
    return node("UI_PictureButton", rect, id, constraints, **kw)


def text_edit(rect, id, constraints=STRETCH, hint_edit=False, **kw):
    return node("UI_TextEdit_S", rect, id, constraints, class_name="AutoHintTextEdit" if hint_edit else None,
                text="", **kw)


def divider(rect, constraints=STRETCH, **kw):
    return node("UI_Divider", rect, None, constraints, **kw)


def subview(rect, id, children, constraints=STRETCH):
    return node("UI_SubView", rect, id, constraints, children=children)


def outline_box(rect, children, constraints=STRETCH):
    return node("UI_OutlineBox", rect, None, constraints, children=children, cornerRadius=Float(2))


T = Q + "Transfer/"


def tloc(key, default):
    return "(" + T + key + "=" + default + ")"


BROWSE = tloc("BrowseForLocation", "Browse for Location...")
BROWSE_ITEM = loc("BrowseForLocation", "Browse for Location...")


def transcode_rows(indent, top, popup_width_end=190):
    """Format and preset rows: a label column, then popups that stretch."""
    left = indent + 60
    return [
        label((indent, top + 1, 56, 20), "FormatStaticText", tloc("Format", "Format:"), FIXED),
        popup((left, top, popup_width_end - left, 22), "FormatPopup"),
        label((indent, top + 33, 56, 20), "PresetStaticText", tloc("Preset", "Preset:"), FIXED),
        popup((left, top + 32, popup_width_end - left, 22), "PresetPopup"),
    ]


def add_field_buttons(first):
    """The add control at the left, save, save as and cancel at the right, under a sunken line."""
    return [
        divider((10, 3, 120, 1), downState=True),
        first,
        picture_button((60, 9, 22, 20), "SaveButton", ANCHOR_RIGHT),
        picture_button((84, 9, 22, 20), "SaveAsButton", ANCHOR_RIGHT),
        picture_button((108, 9, 22, 20), "CancelButton", ANCHOR_RIGHT),
    ]


def move_buttons(top_up, top_down):
    return [
        picture_button((10, top_up, 16, 14), "UI_MoveUpwardButton"),
        picture_button((10, top_down, 16, 14), "UI_MoveDownwardButton"),
    ]


LAYOUTS = {
    "igdAddDestination": (200, 33, [
        text_button((10, 6, 130, 22), "AddDestinationTextButton", loc("AddDestination", "Add Destination"),
                    FIXED),
    ]),
    "igdKilnHostedBackupDestinationHeader": (200, 52, [
        checkbox((10, 5, 180, 20), "BackupDestinationCheckbox", tloc("BackupDestination", "Backup Destination:"),
                 checked=True),
        label((28, 28, 162, 20), "BackupDestinationStaticText",
              tloc("KilnHostedBackupDestination", "Destination:")),
    ]),
    # The popup takes the button's place, across the row, once there is a path to show.
    "igdKilnHostedPathSetting": (200, 32, [
        popup((10, 5, 180, 22), "DestinationPopup", ["", BROWSE_ITEM], visible=False),
        text_button((50, 5, 140, 22), "BrowseTextButton", BROWSE),
    ]),
    # The preset popup leaves room at its right for the action menu the section places there.
    "igdKilnHostedPresetManagementNormalModeHeader": (300, 21, [
        popup((10, 0, 258, 21), "PresetPopup"),
    ]),
    "igdKilnHostedPrimaryDestinationHeader": (200, 23, [
        label((10, 2, 180, 20), "PrimaryDestinationStaticText",
              tloc("KilnHostedPrimaryDestination", "Destination:")),
    ]),
    "igdKilnHostedTranscodeSetting": (200, 91, [
        subview((0, 0, 200, 91), "DetailSettingsView", transcode_rows(10, 18)),
    ]),
    "igdKilnHostedTransferHeader": (200, 30, [
        checkbox((10, 5, 180, 20), "TransferClipsCheckbox",
                 tloc("KilnHostedTransferClips", "Copy files to Destination")),
    ]),
    "igdBackupDestinationHeader": (200, 51, [
        divider((10, 5, 180, 1)),
        checkbox((10, 16, 150, 20), "BackupDestinationCheckbox", tloc("BackupDestination", "Backup Destination:"),
                 checked=True),
        picture_button((168, 18, 22, 16), "RemovePictureButton", ANCHOR_RIGHT),
    ]),
    "igdConcatenateSetting": (200, 64, [
        checkbox((10, 6, 180, 20), "ConcatenateCheckbox", tloc("StitchClipsTogether", "Stitch Clips Together")),
        label((28, 36, 44, 20), "ConcatenateStaticText", tloc("Name", "Name:"), FIXED),
        text_edit((76, 35, 114, 22), "ConcatenateTextEdit"),
    ]),
    "igdDivider": (200, 5, [
        divider((10, 2, 180, 1)),
    ]),
    "igdVaultDestinationHeader": (200, 24, [
        checkbox((10, 2, 180, 20), "TempLocalCopyCheckbox", tloc("TransferClips", "Transfer Clips to Destination"),
                 checked=True),
    ]),
    "igdVaultTransferHeader": (200, 52, [
        label((10, 5, 180, 20), None, tloc("VaultDestination", "Destination:")),
        label((28, 27, 162, 20), "DestinationStaticText"),
    ]),
    "igdLocalTransferHeader": (200, 30, [
        checkbox((10, 5, 180, 20), "TransferClipsCheckbox", tloc("TransferClips", "Transfer Clips to Destination")),
    ]),
    "igdMetadataTemplateAddField": (140, 33, add_field_buttons(picture_button((10, 9, 22, 20)))),
    "igdMetadataTemplateEditModeField": (200, 54, move_buttons(12, 28) + [
        text_edit((32, 4, 124, 22), "MetadataKey", hint_edit=True),
        picture_button((164, 7, 22, 16), "UI_RemoveButton", ANCHOR_RIGHT),
        text_edit((32, 29, 124, 22), "MetadataValue", hint_edit=True),
        checkbox((160, 30, 18, 20), "UI_Checkbox", constraints=ANCHOR_RIGHT),
        label((178, 30, 12, 20), None, "*", ANCHOR_RIGHT),
    ]),
    "igdMetadataTemplateEditModeHeader": (200, 51, [
        label((10, 6, 180, 20), None, loc("RenamePresetName", "Preset Name:"), enabled=False),
        label((10, 27, 180, 20), "PresetName"),
    ]),
    "igdMetadataTemplateHeader": (200, 25, [
        checkbox((10, 3, 180, 20), "EnableManagementCheckBox", loc("AddFileMetadata", "Add File Metadata")),
    ]),
    "igdMetadataTemplateNormalModeField": (150, 50, [
        label((10, 3, 130, 20)),
        text_edit((10, 24, 130, 22), "AutoHintTextEdit", hint_edit=True),
    ]),
    "igdPathSetting": (200, 72, [
        popup((10, 6, 180, 22), "DestinationPopup", ["", BROWSE_ITEM], visible=False),
        text_button((50, 6, 140, 22), "BrowseTextButton", BROWSE),
        checkbox((10, 37, 110, 20), "AddSubfolderCheckbox", tloc("AddSubFolder", "Add Subfolder"), FIXED),
        text_edit((126, 36, 64, 22), "AddSubfolderTextEdit"),
    ]),
    "igdPresetManagementNormalModeHeader": (300, 52, [
        divider((10, 1, 280, 1), enabled=False),
        popup((10, 5, 258, 22), "PresetPopup"),
        popup((10, 29, 280, 22), "ApplyScopePopup",
              [loc("ApplyToAllDest", "Apply to all destinations"),
               loc("ApplyToPrimaryOnly", "Apply to primary destination only")]),
    ]),
    "igdPrimaryDestinationHeader": (200, 23, [
        label((10, 2, 180, 20), "PrimaryDestinationStaticText",
              tloc("PrimaryDestination", "Primary Destination:")),
    ]),
    "igdRenameTemplateAddField": (140, 33, add_field_buttons(
        node("UI_PicturePopup", (10, 9, 22, 20), None, FIXED, drawDivider=False, popupItems=Items([])))),
    "igdRenameTemplateEditModeField": (150, 38, move_buttons(3, 21) + [
        # The field's type shows one of the three in the same place: a choice of patterns, free
        # text or a fixed value.
        popup((30, 8, 86, 22), None, ["Item"], STRETCH),
        text_edit((30, 8, 86, 22), "AutoHintTextEdit", hint_edit=True),
        outline_box((30, 8, 86, 22), [label((4, 1, 78, 20))]),
        picture_button((120, 11, 20, 16), "UI_RemoveButton", ANCHOR_RIGHT),
    ]),
    "igdRenameTemplateEditModeHeader": (200, 57, [
        divider((10, 4, 180, 1), enabled=False),
        label((10, 12, 180, 20), None, loc("RenamePresetName", "Preset Name:"), enabled=False),
        label((10, 33, 180, 20), "PresetName"),
    ]),
    "igdRenameTemplateHeader": (200, 25, [
        checkbox((10, 3, 180, 20), "EnableManagementCheckBox", loc("RenameFiles", "Rename Files")),
    ]),
    "igdRenameTemplateNormalModeField": (300, 26, [
        label((10, 3, 122, 20), "UI_FieldTypeLabel", constraints=FIXED),
        # One of these three shows, by the field's type, in the slot after the label.
        outline_box((134, 2, 156, 22), [label((6, 1, 144, 20))]),
        text_edit((134, 2, 156, 22), "AutoHintTextEdit", hint_edit=True, visible=False),
        node("UI_NumberEdit", (134, 2, 80, 22), "UI_UserDefStartNumber", FIXED, text="1",
             decimalPlaces=Signed(0), maxValue=Double(4294970000), minValue=Double(1), value=Double(1),
             formatUseSeparator=False),
    ]),
    "igdRenameTemplateSample": (200, 45, [
        label((10, 4, 180, 18), None, loc("RenameSample", "Sample:"), enabled=False),
        label((10, 22, 180, 20), "SampleText"),
    ]),
    "igdSummaryCategory": (200, 25, [
        label((10, 3, 180, 20)),
    ]),
    "igdSummaryDetail": (200, 19, [
        label((22, 0, 168, 19)),
    ]),
    "igdSummaryEmptyBottom": (100, 5, []),
    "igdTranscodeSetting": (200, 106, [
        checkbox((10, 6, 180, 20), "TranscodeCheckbox", tloc("Transcode", "Transcode")),
        subview((0, 30, 200, 76), "DetailSettingsView", transcode_rows(28, 8)),
    ]),
    "igdVerifySetting": (200, 47, [
        checkbox((10, 3, 180, 20), "VerifyCheckbox", tloc("Verify", "Verify")),
        popup((28, 24, 162, 22), "VerifyPopup",
              [loc("VerifyMD5", "MD5 comparison"), loc("VerifyFileSize", "File size comparison"),
               loc("VerifyBitByBit", "Bit-by-bit comparison")]),
    ]),
}


def main():
    folder = os.path.dirname(os.path.abspath(__file__))
    for name, (width, height, children) in LAYOUTS.items():
        write_layout(folder, name, width, height, children)
    print("wrote %d layouts" % len(LAYOUTS))


if __name__ == "__main__":
    main()
