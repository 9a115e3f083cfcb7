#!/usr/bin/env python3
"""Writes the sample printers' PPD files and the pane's device profile from the tables below.

Usage: printers/make_printers.py        (Python 3, nothing else; writes into the source tree)

Each option is one row of choices with their English texts; page sizes and defaults follow from it, so that no
PPD entry is written twice by hand. printers/LANGUAGE.strings holds the texts of another language by the English ones.
"""
import plistlib
import re
from dataclasses import dataclass, field
from pathlib import Path

HERE = Path(__file__).resolve().parent
PROFILE = HERE.parent / "resources/KalmoFeatures.plugin/Contents/Resources/Device Profile.plist"
MARGIN = 12  # pt that no office machine can print on


@dataclass
class Option:
    keyword: str
    text: str
    default: str
    choices: list  # (keyword, text)
    group: str = ""
    jcl: str = ""  # the printer's own variable
    order: int = 20
    kind: str = field(default="PickOne")


# Page sizes: keyword, width and height in pt, text.
SIZES = [
    ("A4", 595, 842, "A4"),
    ("Letter", 612, 792, "Letter"),
    ("A3", 842, 1191, "A3"),
    ("Tabloid", 792, 1224, "Tabloid (11 x 17 in)"),
    ("Legal", 612, 1008, "Legal"),
    ("A5", 420, 595, "A5"),
    ("A6", 297, 420, "A6"),
    ("Statement", 396, 612, "Statement"),
    ("Executive", 522, 756, "Executive"),
    ("B5", 516, 729, "B5 (JIS)"),
    ("B4", 729, 1032, "B4 (JIS)"),
    ("SRA3", 907, 1276, "SRA3"),
    ("13x19", 936, 1368, "13 x 19 in"),
    ("12x19", 864, 1368, "12 x 19 in"),
    ("FanFoldGermanLegal", 612, 936, "8.5 x 13 in"),
    ("EnvDL", 312, 624, "Envelope DL"),
    ("EnvC5", 459, 649, "Envelope C5"),
    ("EnvC6", 323, 459, "Envelope C6"),
    ("EnvC4", 649, 918, "Envelope C4"),
    ("Env10", 297, 684, "Envelope No. 10"),
    ("EnvMonarch", 279, 540, "Envelope Monarch"),
    ("4x6", 288, 432, "4 x 6 in"),
    ("5x7", 360, 504, "5 x 7 in"),
    ("8x10", 576, 720, "8 x 10 in"),
]
# What only the production printer takes.
FURTHER_SIZES = [
    ("8.5x13", 612, 936, "Folio"), ("Officio", 612, 964, "Oficio"), ("GovernmentLetter", 576, 756, "Government letter"),
    ("A4Cover", 632, 842, "A4 cover"), ("A4Tab", 632, 842, "A4 tab"), ("9x11", 648, 792, "9 x 11 in"),
    ("9x11L", 792, 648, "9 x 11 in, long edge"), ("B6", 354, 499, "B6"), ("JISB4", 729, 1032, "JIS B4"),
    ("JISB5", 516, 729, "JIS B5"), ("JISB6", 363, 516, "JIS B6"), ("3x5", 216, 360, "3 x 5 in"),
    ("4x6Pcard", 288, 432, "Postcard 4 x 6 in"), ("114x152Pcard", 323, 431, "Postcard 114 x 152 mm"),
    ("100x148Postcard", 283, 420, "Postcard 100 x 148 mm"), ("148x200Postcard", 420, 567, "Postcard 148 x 200 mm"),
    ("SpanishFolio", 609, 893, "Spanish folio"), ("TabloidExtra", 864, 1296, "Tabloid extra (12 x 18 in)"),
    ("220x330", 624, 935, "220 x 330 mm"), ("815", 609, 893, "215 x 315 mm"), ("16K", 550, 757, "16K"),
    ("8K1", 765, 1105, "8K"), ("16K1", 553, 765, "16K, 195 x 270 mm"), ("KL11x15", 792, 1080, "11 x 15 in"),
    ("KL6x9", 432, 648, "6 x 9 in"), ("5p5x7", 396, 504, "5.5 x 7 in"), ("EnvB5", 499, 709, "Envelope B5"),
    ("Env9", 279, 639, "Envelope No. 9"), ("Env6x9", 432, 648, "Envelope 6 x 9 in"),
    ("Env9x12", 648, 864, "Envelope 9 x 12 in"), ("EnvChou3", 340, 666, "Envelope Chou 3"),
]
ENVELOPES = [s[0] for s in SIZES + FURTHER_SIZES if s[0].startswith("Env")]
SMALL = ["A6", "4x6", "5x7", "3x5", "JISB6", "B6", "5p5x7", "4x6Pcard", "114x152Pcard", "100x148Postcard",
         "148x200Postcard"]
LARGE = ["A3", "Tabloid", "B4", "SRA3", "13x19", "12x19"]

TRAYS = [("Auto", "Automatic")] + [(f"Tray{n}", f"Tray {n}") for n in range(1, 7)] + [("Bypass", "Bypass tray")]

MEDIA = [
    ("SystemDefault", "Printer default"),
    ("Standard", "Plain"),
    ("Standard2", "Plain, second side"),
    ("Light", "Lightweight"),
    ("Recycled", "Recycled"),
    ("Bond", "Bond"),
    ("Letterhead", "Letterhead"),
    ("PrePrinted", "Preprinted"),
    ("Punched", "Prepunched"),
    ("Archive", "Archive paper"),
    ("Rough", "Rough surface"),
    ("CardStock", "Cardstock"),
    ("CardStock2", "Cardstock, second side"),
    ("CardStockF", "Cardstock, front"),
    ("ExtraHeavyweight", "Heavy cardstock"),
    ("ExtraHeavyweight2", "Heavy cardstock, second side"),
    ("ExtraHeavyPlus", "Extra heavy cardstock"),
    ("LightGlossy", "Glossy cardstock"),
    ("LightGlossy2", "Glossy cardstock, second side"),
    ("HeavyGlossy", "Heavy glossy cardstock"),
    ("HeavyGlossy2", "Heavy glossy cardstock, second side"),
    ("Transparency", "Transparency"),
    ("Labels", "Labels"),
    ("HeavyweightLabels", "Heavy labels"),
    ("TabStock", "Tab stock"),
    ("HeavyTabStock", "Heavy tab stock"),
    ("Envelopes", "Envelope"),
    ("Postcard", "Postcard"),
] + [(f"Custom{n}", f"Custom type {n}") for n in range(1, 8)] + [
    ("Other", "Other"),
    ("Unspecified", "Unspecified"),
]

COLORS = [
    ("PrinterDefaultColor", "Printer default"),
    ("White", "White"), ("Buff", "Buff"), ("Blue", "Blue"),
    ("Clear", "Clear"), ("Gray", "Gray"), ("Green", "Green"),
    ("Ivory", "Ivory"), ("Orange", "Orange"), ("Pink", "Pink"),
    ("Red", "Red"), ("Yellow", "Yellow"), ("Goldenrod", "Goldenrod"),
    ("Other", "Other"), ("Unspecified", "Unspecified"),
] + [(f"Custom{n}", f"Custom color {n}") for n in range(1, 8)]

FURTHER_MEDIA = [
    ("LightGlossyF", "Glossy cardstock, front"), ("ExtraHeavyPlus2", "Extra heavy cardstock, second side"),
    ("ExtraHeavyGlossy", "Extra heavy glossy cardstock"),
    ("ExtraHeavyGlossy2", "Extra heavy glossy cardstock, second side"), ("ExtraHeavyLabels", "Extra heavy labels"),
    ("GlossCoating", "Gloss coated"), ("GlossCoatingReloaded", "Gloss coated, second side"),
    ("HeavyWeightGlossCoating", "Heavy gloss coated"),
    ("HeavyWeightGlossCoatingReloaded", "Heavy gloss coated, second side"),
    ("ExtraHeavyWeightGlossReloaded", "Extra heavy gloss coated, second side"),
]
FURTHER_BINS = [
    ("Side", "Side tray"), ("Top", "Top"), ("TopTray", "Top tray"), ("Stacker", "Stacker"),
    ("TopTrayHCS", "High-capacity stacker, top tray"), ("StackerTrayHCS", "High-capacity stacker"),
    ("Upper", "Upper tray"), ("Lower", "Lower tray"), ("Middle", "Middle tray"), ("Middle2", "Second middle tray"),
    ("Center", "Center tray"), ("Bottom", "Bottom tray"), ("EnvFolder", "Envelope folder"), ("SBM", "Booklet maker"),
]

ON_OFF = [("False", "Off"), ("True", "On")]

GROUPS = [
    ("Paper", "Paper"),
    ("Finishing", "Finishing"),
    ("Sheets", "Covers and slip sheets"),
    ("Image", "Image quality"),
    ("Color", "Color"),
    ("InstallableOptions", "Installed options"),
]


def lightness_steps():
    lighter = [(f"Lighten{n}", f"Lighter {n}") for n in range(5, 0, -1)]
    darker = [(f"Darken{n}", f"Darker {n}") for n in range(1, 6)]
    return lighter + [("Normal", "Normal")] + darker


def resolutions():
    pairs = [(200, 200), (300, 300), (600, 600), (1200, 600), (1200, 1200), (1800, 1800)]
    texts = [f"{x} dpi" if x == y else f"{x} x {y} dpi" for x, y in pairs]
    return [(f"{x}x{y}dpi", text) for (x, y), text in zip(pairs, texts)]


OPTIONS = [
    Option("PageSize", "Paper size", "A4",
           [(k, text) for k, _, _, text in SIZES], "Paper", order=10),
    Option("PageRegion", "Paper size", "A4",
           [(k, text) for k, _, _, text in SIZES], "Paper", order=10),
    Option("InputSlot", "Paper source", "Auto", TRAYS, "Paper"),
    Option("MediaType", "Paper type", "Standard", MEDIA, "Paper"),
    Option("MediaColor", "Paper color", "White", COLORS, "Paper"),
    Option("KLFeedEdge", "Feed edge", "LongEdge",
           [("LongEdge", "Long edge"), ("ShortEdge", "Short edge")],
           "Paper"),
    Option("Duplex", "2-sided printing", "None",
           [("None", "1-sided"),
            ("DuplexNoTumble", "2-sided"),
            ("DuplexTumble", "2-sided, flip on short edge")],
           "Finishing"),
    Option("OutputBin", "Output tray", "Auto",
           [("Auto", "Automatic"),
            ("PrinterDefault", "Printer default"),
            ("CentreTray1", "Center tray, lower"),
            ("CentreTray2", "Center tray, upper"),
            ("RightTopTray", "Right tray, upper"),
            ("RightMiddleTray", "Right tray, middle"),
            ("Finisher", "Finisher tray"),
            ("Booklet", "Booklet tray")], "Finishing"),
    Option("StapleLocation", "Staples", "None",
           [("None", "No staples"), ("SinglePortrait", "1 staple"),
            ("DualLandscape", "2 staples"),
            ("MultipleStaples", "4 staples")], "Finishing"),
    Option("KLPunch", "Hole punch", "None",
           [("None", "No holes"), ("HolePunch", "Punched"),
            ("2HolePunch", "2 holes"), ("3HolePunch", "3 holes"),
            ("4HolePunch", "4 holes")], "Finishing"),
    Option("KLFold", "Fold", "None",
           [("None", "No fold"), ("C", "C fold"),
            ("Z", "Z fold"),
            ("ZFoldHalfSheet", "Z fold, half sheet"),
            ("BiFold", "Single fold"),
            ("BiFoldStaple", "Single fold, stapled")], "Finishing"),
    Option("Jog", "Offset", "None",
           [("None", "None"), ("EndOfSet", "Each set")], "Finishing"),
    Option("KLOutputOption", "Face up", "False", ON_OFF, "Finishing",
           kind="Boolean"),
    Option("KLFrontCoverSheet", "Front cover from",
           "Auto", TRAYS, "Sheets"),
    Option("KLBackCoverSheet", "Back cover from",
           "Auto", TRAYS, "Sheets"),
    Option("KLSlipSheetPrint", "Slip sheets", "None",
           [("None", "None"), ("Blank", "Blank"),
            ("Printed", "Printed")], "Sheets"),
    Option("KLSlipSheetSource", "Slip sheets from", "Auto", TRAYS, "Sheets"),
    Option("KLSlipSheetType", "Slip sheet type",
           "SystemDefault", MEDIA, "Sheets"),
    Option("JCLBanner", "Banner sheet", "False", ON_OFF, "Sheets", "BANNER",
           kind="Boolean"),
    Option("Resolution", "Resolution", "600x600dpi", resolutions(), "Image"),
    Option("KLEconomode", "Toner saver", "None",
           [("None", "Off"), ("Draft", "On")], "Image"),
    Option("KLImageQuality", "Lightness", "Normal", lightness_steps(), "Image"),
    Option("JCLPrintQuality", "Print quality", "Standard",
           [("TonerSaver", "Toner saver"), ("Standard", "Standard"),
            ("Enhanced", "Enhanced"), ("HighSpeed", "High speed"),
            ("HighQuality", "High quality"),
            ("HighResolution", "High resolution")], "Image", "QUALITY"),
    Option("KLMColor", "Output color", "Color",
           [("Color", "Color"), ("BW", "Black and white")], "Color"),
    Option("KLColorMode", "Color mode", "Color",
           [("Color", "Color"), ("Grayscale", "Grayscale")], "Color"),
    Option("KLMGrayline", "Gray lines", "PrinterDefault",
           [("PrinterDefault", "Printer default"),
            ("Automatic", "Automatic"), ("PureBlack", "Black only"),
            ("Composite", "All colors")], "Color"),
    Option("JCLColorCorrection", "Color correction", "Auto",
           [("Auto", "Automatic"), ("None", "None"),
            ("Standard", "Vivid"), ("sRGB", "sRGB display"),
            ("PressMatch", "Press match"),
            ("BlackWhite", "Black and white")], "Color", "COLORCORRECTION"),
    Option("JCLRGBColorSpace", "RGB color space", "sRGB",
           [("KalmoRGB", "Kalmo RGB"), ("sRGB", "sRGB"),
            ("AppleRGB", "Apple RGB"), ("AdobeRGB", "Adobe RGB")],
           "Color", "RGBSPACE"),
    Option("JCLCMYKColorSpace", "CMYK color space", "EuroScale",
           [("SNAP", "SNAP"), ("SWOP", "SWOP"),
            ("EuroScale", "Euroscale"), ("Commercial", "Commercial"),
            ("JapanColor", "Japan Color")], "Color", "CMYKSPACE"),
    Option("JCLTrueGrayGraphics", "Pure gray in graphics", "True",
           ON_OFF, "Color", "TRUEGRAYGRAPHICS", kind="Boolean"),
    Option("JCLTrueGrayImages", "Pure gray in images", "False",
           ON_OFF, "Color", "TRUEGRAYIMAGES", kind="Boolean"),
    Option("Option4", "Stapler", "True",
           [("False", "Not installed"), ("True", "Installed")],
           "InstallableOptions", kind="Boolean"),
    Option("Option5", "Fax", "True",
           [("False", "Not installed"), ("True", "Installed")],
           "InstallableOptions", kind="Boolean"),
    Option("Option8", "Job storage", "True",
           [("False", "Not installed"), ("True", "Installed")],
           "InstallableOptions", kind="Boolean"),
]

THIN_OR_STICKY = ["Transparency", "Labels", "HeavyweightLabels", "Envelopes", "Postcard"]
TABS = ["TabStock", "HeavyTabStock"]
HEAVY = ["ExtraHeavyweight", "ExtraHeavyweight2", "ExtraHeavyPlus", "HeavyGlossy", "HeavyGlossy2"]
# Two options: an option (its choice; "" = any but None), and the choices of another that it does not go with.
CONFLICTS = [
    ("StapleLocation", "", "MediaType", THIN_OR_STICKY + HEAVY),
    ("StapleLocation", "", "PageSize", ENVELOPES + SMALL + ["SRA3", "13x19", "12x19"]),
    ("StapleLocation", "", "OutputBin", ["RightTopTray", "RightMiddleTray"]),
    ("StapleLocation", "", "KLFold", ["C", "Z", "BiFold", "BiFoldStaple"]),
    ("StapleLocation", "", "Option4", ["False"]),
    ("KLPunch", "", "MediaType", THIN_OR_STICKY + TABS + HEAVY + ["Punched"]),
    ("KLPunch", "", "PageSize", ENVELOPES + SMALL + ["SRA3", "13x19", "12x19"]),
    ("KLPunch", "", "OutputBin", ["RightTopTray", "RightMiddleTray"]),
    ("KLPunch", "", "KLFold", ["C", "Z", "BiFold", "BiFoldStaple"]),
    ("KLFold", "", "MediaType", THIN_OR_STICKY + TABS + HEAVY),
    ("KLFold", "", "PageSize", ENVELOPES + SMALL + ["A5", "Statement"]),
    ("KLFold", "C", "PageSize", LARGE + ["Legal", "FanFoldGermanLegal"]),
    ("KLFold", "Z", "PageSize", LARGE + ["Legal", "FanFoldGermanLegal"]),
    ("KLFold", "ZFoldHalfSheet", "PageSize", ["A4", "Letter", "Executive", "B5", "SRA3", "13x19"]),
    ("KLFold", "BiFoldStaple", "Option4", ["False"]),
    ("Duplex", "", "MediaType", ["Labels", "HeavyweightLabels", "Transparency", "Envelopes",
                                 "Standard2", "CardStock2", "ExtraHeavyweight2", "ExtraHeavyPlus",
                                 "LightGlossy2", "HeavyGlossy2"]),
    ("Duplex", "", "PageSize", ENVELOPES + ["A6", "4x6"]),
    ("InputSlot", "Tray1", "PageSize", ENVELOPES + SMALL + ["SRA3", "13x19", "12x19"]),
    ("InputSlot", "Tray2", "PageSize", ENVELOPES + SMALL + ["SRA3", "13x19", "12x19"]),
    ("InputSlot", "Tray3", "PageSize", ENVELOPES + SMALL + LARGE),
    ("InputSlot", "Tray4", "PageSize", ENVELOPES + SMALL + LARGE),
    ("InputSlot", "Tray6", "PageSize", ENVELOPES + SMALL),
    ("KLEconomode", "Draft", "Resolution", ["1800x1800dpi"]),
    ("KLEconomode", "Draft", "JCLPrintQuality", ["Enhanced", "HighQuality", "HighResolution"]),
]
# The production printer's, besides: three options or more that do not go together, though any two of them do.
SETS = [
    [("StapleLocation", "MultipleStaples"), ("KLPunch", "4HolePunch"), ("PageSize", "A3")],
    [("StapleLocation", "MultipleStaples"), ("KLPunch", "3HolePunch"), ("PageSize", "Tabloid")],
    [("KLFold", "ZFoldHalfSheet"), ("StapleLocation", "DualLandscape"), ("Duplex", "DuplexTumble")],
    [("Duplex", ""), ("Resolution", "1800x1800dpi"), ("MediaType", "CardStock")],
    [("Duplex", ""), ("InputSlot", "Bypass"), ("MediaType", "CardStock"), ("OutputBin", "Booklet")],
    [("KLSlipSheetPrint", "Printed"), ("KLSlipSheetSource", "Bypass"), ("KLSlipSheetType", "Transparency")],
    [("OutputBin", "StackerTrayHCS"), ("Jog", "EndOfSet"), ("MediaType", "Postcard")],
    [("KLOutputOption", "True"), ("Duplex", ""), ("OutputBin", "SBM")],
    [("KLFold", "BiFold"), ("OutputBin", "StackerTrayHCS")],
    [("KLFold", "BiFoldStaple"), ("OutputBin", "StackerTrayHCS")],
    [("OutputBin", "EnvFolder"), ("MediaType", "TabStock")],
    [("OutputBin", "EnvFolder"), ("StapleLocation", "")],
    [("InputSlot", "Tray5"), ("MediaType", "HeavyTabStock")],
    [("MediaType", "ExtraHeavyGlossy"), ("InputSlot", "Tray1")],
    [("MediaType", "ExtraHeavyLabels"), ("Duplex", "")],
    [("Option4", "False"), ("StapleLocation", "")],
]
COLOR_ONLY = {"KLMColor", "KLColorMode", "KLMGrayline", "JCLColorCorrection", "JCLRGBColorSpace",
              "JCLCMYKColorSpace", "JCLTrueGrayGraphics", "JCLTrueGrayImages"}


@dataclass
class Model:
    file: str
    name: str
    short: str
    color: bool
    pages_per_minute: int
    production: bool = False
    basic: bool = False  # papers, and nothing else

    def sizes(self):
        if self.basic:
            return [s for s in SIZES if s[0] in ("A4", "Letter", "Legal", "A5", "EnvDL", "Env10")]
        return SIZES + (FURTHER_SIZES if self.production else [])

    def options(self):
        if self.basic:
            return [o for o in OPTIONS if o.keyword in PAPER_SIZES]
        return [o for o in OPTIONS if self.color or o.keyword not in COLOR_ONLY]

    def choices(self, option):
        if option.keyword in PAPER_SIZES:
            return [(key, text) for key, _, _, text in self.sizes()]
        return option.choices + (FURTHER_CHOICES.get(option.keyword, []) if self.production else [])

    def conflicts(self):
        """What does not go together, each as a list of options with a choice ("" = any but None)."""
        pairs = [[(left, choice), (right, value)] for left, choice, right, values in CONFLICTS for value in values]
        offered = {o.keyword: {key for key, _ in self.choices(o)} | {""} for o in self.options()}
        for constraint in pairs + (SETS if self.production else []):
            if all(choice in offered.get(keyword, ()) for keyword, choice in constraint):
                yield constraint


PAPER_SIZES = ("PageSize", "PageRegion")
FURTHER_CHOICES = {"MediaType": FURTHER_MEDIA, "KLSlipSheetType": FURTHER_MEDIA, "OutputBin": FURTHER_BINS,
                   "Resolution": [("200x100dpi", "200 x 100 dpi")]}
MODELS = [
    Model("kalmo-office-color.ppd", "Kalmo Tolvane C7030", "KLC7030.PPD", True, 30),
    Model("kalmo-office-mono.ppd", "Kalmo Tolvane M5045", "KLM5045.PPD", False, 45),
    Model("kalmo-basic.ppd", "Kalmo Tolvane M1020", "KLM1020.PPD", False, 20, basic=True),
    Model("kalmo-production.ppd", "Kalmo Tolvane P9100", "KLP9100.PPD", True, 100, production=True),
]
# The device profile is that of the printer that has everything.
PROFILED = MODELS[-1]


def languages():
    """Tables of texts by English ones, by language."""
    row = re.compile(r'^"([^"]*)" = "([^"]*)";$', re.MULTILINE)
    return {file.stem: dict(row.findall(file.read_text(encoding="utf-8"))) for file in sorted(HERE.glob("*.strings"))}


def header(model):
    true_false = "True" if model.color else "False"
    return f'''*PPD-Adobe: "4.3"
*% Written by printers/make_printers.py.
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*cupsLanguages: "{' '.join(['en', *languages()])}"
*PCFileName: "{model.short}"
*Manufacturer: "Kalmo"
*Product: "({model.name})"
*ModelName: "{model.name}"
*ShortNickName: "{model.name}"
*NickName: "{model.name}"
*1284DeviceID: "MFG:Kalmo;MDL:{model.name.removeprefix('Kalmo ')};CMD:PDF,POSTSCRIPT,PJL;CLS:PRINTER;"
*PSVersion: "(3018.102) 0"
*LanguageLevel: "3"
*ColorDevice: {true_false}
*DefaultColorSpace: {"CMYK" if model.color else "Gray"}
*FileSystem: True
*Throughput: "{model.pages_per_minute}"
*LandscapeOrientation: Plus90
*TTRasterizer: Type42
*Protocols: PJL TBCP
*cupsVersion: 2.4
*cupsManualCopies: False
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 kalmoticket"
*JCLBegin: "<1B>%-12345X@PJL JOB<0A>"
*JCLToPSInterpreter: "@PJL ENTER LANGUAGE=POSTSCRIPT<0A>"
*JCLEnd: "<1B>%-12345X@PJL EOJ<0A><1B>%-12345X"
'''


def code(option, choice, sizes):
    if option.jcl:
        return f'"@PJL SET {option.jcl}={choice.upper()}<0A>"'
    if option.keyword in PAPER_SIZES:
        _, width, height, _ = next(s for s in sizes if s[0] == choice)
        return f'"<</PageSize[{width} {height}]/ImagingBBox null>>setpagedevice"'
    return '""'


def option_block(model, option):
    jcl = "JCL" if option.jcl else ""
    setup = "JCLSetup" if option.jcl else "AnySetup"
    lines = [f"*{jcl}OpenUI *{option.keyword}/{option.text}: {option.kind}",
             f"*OrderDependency: {option.order} {setup} *{option.keyword}",
             f"*Default{option.keyword}: {option.default}"]
    lines += [f"*{option.keyword} {key}/{text}: {code(option, key, model.sizes())}"
              for key, text in model.choices(option)]
    return lines + [f"*{jcl}CloseUI: *{option.keyword}", ""]


def dimensions(sizes):
    lines = ["*DefaultImageableArea: A4"]
    lines += [f'*ImageableArea {k}/{text}: "{MARGIN} {MARGIN} {w - MARGIN} {h - MARGIN}"'
              for k, w, h, text in sizes]
    lines += ["*DefaultPaperDimension: A4"]
    return lines + [f'*PaperDimension {k}/{text}: "{w} {h}"' for k, w, h, text in sizes] + [""]


def custom_size():
    return f'''*HWMargins: {MARGIN} {MARGIN} {MARGIN} {MARGIN}
*VariablePaperSize: True
*MaxMediaWidth: "936"
*MaxMediaHeight: "1368"
*NonUIOrderDependency: 10 AnySetup *CustomPageSize
*CustomPageSize True/Custom size: "pop pop pop 2 array astore <</PageSize 3 -1 roll/ImagingBBox null>>setpagedevice"
*ParamCustomPageSize Width/Width: 1 points 279 936
*ParamCustomPageSize Height/Height: 2 points 420 1368
*ParamCustomPageSize WidthOffset/Width offset: 3 points 0 0
*ParamCustomPageSize HeightOffset/Height offset: 4 points 0 0
*ParamCustomPageSize Orientation/Orientation: 5 int 0 0
*DefaultLeadingEdge: Long
*LeadingEdge Long: ""
*LeadingEdge Short: ""
'''.splitlines() + [""]


def conflicts(model):
    """Pairs in the old form, which all programs read; with sets of three the newer form takes its place."""
    constraints = [[f"*{keyword} {choice}".rstrip() for keyword, choice in c] for c in model.conflicts()]
    if model.production:
        return [f'*cupsUIConstraints: "{" ".join(c)}"' for c in constraints] + [""]
    return [f"*UIConstraints: {' '.join(c)}" for left, right in constraints for c in ((left, right), (right, left))] + [""]


def translations(model, language, texts):
    """A text without a translation stays English."""
    def line(keyword, key, text):
        return [f'*{language}.{keyword} {key}/{texts[text]}: ""'] if text in texts else []
    used = {o.group for o in model.options()}
    lines = [l for key, text in GROUPS if key in used for l in line("Translation", key, text)]
    for option in model.options():
        lines += line("Translation", option.keyword, option.text)
        lines += [l for key, text in model.choices(option) for l in line(option.keyword, key, text)]
    lines += line("CustomPageSize", "True", "Custom size")
    for key, text in CUSTOM_PARAMETERS:
        lines += line("ParamCustomPageSize", key, text)
    return lines


CUSTOM_PARAMETERS = [("Width", "Width"), ("Height", "Height"), ("WidthOffset", "Width offset"),
                     ("HeightOffset", "Height offset"), ("Orientation", "Orientation")]


def ppd(model):
    lines = header(model).splitlines() + [""]
    for group, text in GROUPS:
        blocks = [o for o in model.options() if o.group == group]
        lines += [f"*OpenGroup: {group}/{text}", ""] if blocks else []
        for option in blocks:
            lines += option_block(model, option)
            if option.keyword == "PageRegion":
                lines += dimensions(model.sizes()) + custom_size()
        lines += [f"*CloseGroup: {group}", ""] if blocks else []
    fonts = ["*DefaultFont: Courier", '*Font Courier: Standard "(002.004S)" Standard ROM', ""]
    translated = [l for language, texts in languages().items() for l in translations(model, language, texts)]
    return "\n".join(lines + conflicts(model) + fonts + translated) + "\n"


def feature(model, option):
    keywords = {key: {"Properties": {}} for key, _ in model.choices(option)}
    keywords[option.default]["Default"] = True
    return {"Properties": {"Group": option.group, "PrinterControl": bool(option.jcl)},
            "Syntax": {"Keyword": keywords}}


def free_features():
    """What has no choices but takes a text or a number."""
    def free(form, **value):
        return {"Properties": {"Group": "Job", "PrinterControl": False}, "Syntax": {form: value}}
    return {"JobName": free("Name", Default=""), "Copies": free("Number", Default=1, Minimum=1, Maximum=999)}


def main():
    for model in MODELS:
        (HERE / model.file).write_text(ppd(model), encoding="utf-8")
    features = {o.keyword: feature(PROFILED, o) for o in PROFILED.options()}
    lines = plistlib.dumps({"Features": features | free_features()}).decode().splitlines(keepends=True)
    # The document type declaration names a file on a server that nothing here needs.
    PROFILE.write_text("".join(l for l in lines if not l.startswith("<!DOCTYPE")))


if __name__ == "__main__":
    main()
