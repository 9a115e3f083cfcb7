#!/usr/bin/env python3
"""Writes the sample printers' PPD files and the pane's device profile from the tables below.

Usage: printers/make_printers.py        (Python 3, nothing else; writes into the source tree)

Each option is one row of choices with its English and German text; page sizes, translations and
defaults follow from it, so that no PPD entry is written twice by hand.
"""
import plistlib
from dataclasses import dataclass, field
from pathlib import Path

HERE = Path(__file__).resolve().parent
PROFILE = HERE.parent / "resources/KalmoFeatures.plugin/Contents/Resources/Device Profile.plist"
MARGIN = 12  # pt that no office machine can print on


@dataclass
class Option:
    keyword: str
    texts: tuple  # English, German
    default: str
    choices: list  # (keyword, English, German), code added for JCL options
    group: str = ""
    jcl: str = ""  # the printer's own variable
    order: int = 20
    kind: str = field(default="PickOne")


# Page sizes: keyword, width and height in pt, English, German.
SIZES = [
    ("A4", 595, 842, "A4", "A4"),
    ("Letter", 612, 792, "Letter", "Letter"),
    ("A3", 842, 1191, "A3", "A3"),
    ("Tabloid", 792, 1224, "Tabloid (11 x 17 in)", "Tabloid (11 x 17 Zoll)"),
    ("Legal", 612, 1008, "Legal", "Legal"),
    ("A5", 420, 595, "A5", "A5"),
    ("A6", 297, 420, "A6", "A6"),
    ("Statement", 396, 612, "Statement", "Statement"),
    ("Executive", 522, 756, "Executive", "Executive"),
    ("B5", 516, 729, "B5 (JIS)", "B5 (JIS)"),
    ("B4", 729, 1032, "B4 (JIS)", "B4 (JIS)"),
    ("SRA3", 907, 1276, "SRA3", "SRA3"),
    ("13x19", 936, 1368, "13 x 19 in", "13 x 19 Zoll"),
    ("12x19", 864, 1368, "12 x 19 in", "12 x 19 Zoll"),
    ("FanFoldGermanLegal", 612, 936, "8.5 x 13 in", "8,5 x 13 Zoll"),
    ("EnvDL", 312, 624, "Envelope DL", "Umschlag DL"),
    ("EnvC5", 459, 649, "Envelope C5", "Umschlag C5"),
    ("EnvC6", 323, 459, "Envelope C6", "Umschlag C6"),
    ("EnvC4", 649, 918, "Envelope C4", "Umschlag C4"),
    ("Env10", 297, 684, "Envelope No. 10", "Umschlag Nr. 10"),
    ("EnvMonarch", 279, 540, "Envelope Monarch", "Umschlag Monarch"),
    ("4x6", 288, 432, "4 x 6 in", "4 x 6 Zoll"),
    ("5x7", 360, 504, "5 x 7 in", "5 x 7 Zoll"),
    ("8x10", 576, 720, "8 x 10 in", "8 x 10 Zoll"),
]
ENVELOPES = [s[0] for s in SIZES if s[0].startswith("Env")]
SMALL = ["A6", "4x6", "5x7"]
LARGE = ["A3", "Tabloid", "B4", "SRA3", "13x19", "12x19"]

TRAYS = [("Auto", "Automatic", "Automatisch")] + [
    (f"Tray{n}", f"Tray {n}", f"Fach {n}") for n in range(1, 7)
] + [("Bypass", "Bypass tray", "Zusatzzufuhr")]

MEDIA = [
    ("SystemDefault", "Printer default", "Druckervorgabe"),
    ("Standard", "Plain", "Normalpapier"),
    ("Standard2", "Plain, second side", "Normalpapier, zweite Seite"),
    ("Light", "Lightweight", "Dünnes Papier"),
    ("Recycled", "Recycled", "Recyclingpapier"),
    ("Bond", "Bond", "Schreibmaschinenpapier"),
    ("Letterhead", "Letterhead", "Briefbogen"),
    ("PrePrinted", "Preprinted", "Vordruck"),
    ("Punched", "Prepunched", "Gelochtes Papier"),
    ("Archive", "Archive paper", "Archivpapier"),
    ("Rough", "Rough surface", "Raue Oberfläche"),
    ("CardStock", "Cardstock", "Karton"),
    ("CardStock2", "Cardstock, second side", "Karton, zweite Seite"),
    ("CardStockF", "Cardstock, front", "Karton, Vorderseite"),
    ("ExtraHeavyweight", "Heavy cardstock", "Schwerer Karton"),
    ("ExtraHeavyweight2", "Heavy cardstock, second side", "Schwerer Karton, zweite Seite"),
    ("ExtraHeavyPlus", "Extra heavy cardstock", "Extraschwerer Karton"),
    ("LightGlossy", "Glossy cardstock", "Glanzkarton"),
    ("LightGlossy2", "Glossy cardstock, second side", "Glanzkarton, zweite Seite"),
    ("HeavyGlossy", "Heavy glossy cardstock", "Schwerer Glanzkarton"),
    ("HeavyGlossy2", "Heavy glossy cardstock, second side", "Schwerer Glanzkarton, zweite Seite"),
    ("Transparency", "Transparency", "Folie"),
    ("Labels", "Labels", "Etiketten"),
    ("HeavyweightLabels", "Heavy labels", "Schwere Etiketten"),
    ("TabStock", "Tab stock", "Registerblätter"),
    ("HeavyTabStock", "Heavy tab stock", "Schwere Registerblätter"),
    ("Envelopes", "Envelope", "Umschlag"),
    ("Postcard", "Postcard", "Postkarte"),
] + [(f"Custom{n}", f"Custom type {n}", f"Eigene Sorte {n}") for n in range(1, 8)] + [
    ("Other", "Other", "Andere"),
    ("Unspecified", "Unspecified", "Nicht angegeben"),
]

COLORS = [
    ("PrinterDefaultColor", "Printer default", "Druckervorgabe"),
    ("White", "White", "Weiß"), ("Buff", "Buff", "Beige"), ("Blue", "Blue", "Blau"),
    ("Clear", "Clear", "Durchsichtig"), ("Gray", "Gray", "Grau"), ("Green", "Green", "Grün"),
    ("Ivory", "Ivory", "Elfenbein"), ("Orange", "Orange", "Orange"), ("Pink", "Pink", "Rosa"),
    ("Red", "Red", "Rot"), ("Yellow", "Yellow", "Gelb"), ("Goldenrod", "Goldenrod", "Goldgelb"),
    ("Other", "Other", "Andere"), ("Unspecified", "Unspecified", "Nicht angegeben"),
] + [(f"Custom{n}", f"Custom color {n}", f"Eigene Farbe {n}") for n in range(1, 8)]

ON_OFF = [("False", "Off", "Aus"), ("True", "On", "Ein")]

GROUPS = [
    ("Paper", "Paper", "Papier"),
    ("Finishing", "Finishing", "Weiterverarbeitung"),
    ("Sheets", "Covers and slip sheets", "Deckblätter und Trennblätter"),
    ("Image", "Image quality", "Bildqualität"),
    ("Color", "Color", "Farbe"),
    ("InstallableOptions", "Installed options", "Installierte Optionen"),
]


def lightness_steps():
    lighter = [(f"Lighten{n}", f"Lighter {n}", f"Heller {n}") for n in range(5, 0, -1)]
    darker = [(f"Darken{n}", f"Darker {n}", f"Dunkler {n}") for n in range(1, 6)]
    return lighter + [("Normal", "Normal", "Normal")] + darker


def resolutions():
    pairs = [(200, 200), (300, 300), (600, 600), (1200, 600), (1200, 1200), (1800, 1800)]
    texts = [f"{x} dpi" if x == y else f"{x} x {y} dpi" for x, y in pairs]
    return [(f"{x}x{y}dpi", text, text) for (x, y), text in zip(pairs, texts)]


OPTIONS = [
    Option("PageSize", ("Paper size", "Papierformat"), "A4",
           [(k, en, de) for k, _, _, en, de in SIZES], "Paper", order=10),
    Option("PageRegion", ("Paper size", "Papierformat"), "A4",
           [(k, en, de) for k, _, _, en, de in SIZES], "Paper", order=10),
    Option("InputSlot", ("Paper source", "Papierquelle"), "Auto", TRAYS, "Paper"),
    Option("MediaType", ("Paper type", "Papiersorte"), "Standard", MEDIA, "Paper"),
    Option("MediaColor", ("Paper color", "Papierfarbe"), "White", COLORS, "Paper"),
    Option("KLFeedEdge", ("Feed edge", "Einzugskante"), "LongEdge",
           [("LongEdge", "Long edge", "Lange Kante"), ("ShortEdge", "Short edge", "Kurze Kante")],
           "Paper"),
    Option("Duplex", ("2-sided printing", "Beidseitiger Druck"), "None",
           [("None", "1-sided", "Einseitig"),
            ("DuplexNoTumble", "2-sided", "Beidseitig"),
            ("DuplexTumble", "2-sided, flip on short edge", "Beidseitig, über kurze Kante")],
           "Finishing"),
    Option("OutputBin", ("Output tray", "Ausgabefach"), "Auto",
           [("Auto", "Automatic", "Automatisch"),
            ("PrinterDefault", "Printer default", "Druckervorgabe"),
            ("CentreTray1", "Center tray, lower", "Mittleres Fach, unten"),
            ("CentreTray2", "Center tray, upper", "Mittleres Fach, oben"),
            ("RightTopTray", "Right tray, upper", "Rechtes Fach, oben"),
            ("RightMiddleTray", "Right tray, middle", "Rechtes Fach, Mitte"),
            ("Finisher", "Finisher tray", "Finisherfach"),
            ("Booklet", "Booklet tray", "Broschürenfach")], "Finishing"),
    Option("StapleLocation", ("Staples", "Heftung"), "None",
           [("None", "No staples", "Keine Heftung"), ("SinglePortrait", "1 staple", "1 Klammer"),
            ("DualLandscape", "2 staples", "2 Klammern"),
            ("MultipleStaples", "4 staples", "4 Klammern")], "Finishing"),
    Option("KLPunch", ("Hole punch", "Lochung"), "None",
           [("None", "No holes", "Keine Lochung"), ("HolePunch", "Punched", "Gelocht"),
            ("2HolePunch", "2 holes", "2 Löcher"), ("3HolePunch", "3 holes", "3 Löcher"),
            ("4HolePunch", "4 holes", "4 Löcher")], "Finishing"),
    Option("KLFold", ("Fold", "Falzung"), "None",
           [("None", "No fold", "Keine Falzung"), ("C", "C fold", "Wickelfalz"),
            ("Z", "Z fold", "Zickzackfalz"),
            ("ZFoldHalfSheet", "Z fold, half sheet", "Zickzackfalz, halbes Blatt"),
            ("BiFold", "Single fold", "Einbruchfalz"),
            ("BiFoldStaple", "Single fold, stapled", "Einbruchfalz, geheftet")], "Finishing"),
    Option("Jog", ("Offset", "Versetzte Ablage"), "None",
           [("None", "None", "Keine"), ("EndOfSet", "Each set", "Jeder Satz")], "Finishing"),
    Option("KLOutputOption", ("Face up", "Druckseite nach oben"), "False", ON_OFF, "Finishing",
           kind="Boolean"),
    Option("KLFrontCoverSheet", ("Front cover from", "Vorderes Deckblatt aus"),
           "Auto", TRAYS, "Sheets"),
    Option("KLBackCoverSheet", ("Back cover from", "Hinteres Deckblatt aus"),
           "Auto", TRAYS, "Sheets"),
    Option("KLSlipSheetPrint", ("Slip sheets", "Trennblätter"), "None",
           [("None", "None", "Keine"), ("Blank", "Blank", "Leer"),
            ("Printed", "Printed", "Bedruckt")], "Sheets"),
    Option("KLSlipSheetSource", ("Slip sheets from", "Trennblätter aus"), "Auto", TRAYS, "Sheets"),
    Option("KLSlipSheetType", ("Slip sheet type", "Trennblattsorte"),
           "SystemDefault", MEDIA, "Sheets"),
    Option("JCLBanner", ("Banner sheet", "Startseite"), "False", ON_OFF, "Sheets", "BANNER",
           kind="Boolean"),
    Option("Resolution", ("Resolution", "Auflösung"), "600x600dpi", resolutions(), "Image"),
    Option("KLEconomode", ("Toner saver", "Toner sparen"), "None",
           [("None", "Off", "Aus"), ("Draft", "On", "Ein")], "Image"),
    Option("KLImageQuality", ("Lightness", "Helligkeit"), "Normal", lightness_steps(), "Image"),
    Option("JCLPrintQuality", ("Print quality", "Druckqualität"), "Standard",
           [("TonerSaver", "Toner saver", "Toner sparen"), ("Standard", "Standard", "Standard"),
            ("Enhanced", "Enhanced", "Verbessert"), ("HighSpeed", "High speed", "Schnell"),
            ("HighQuality", "High quality", "Hohe Qualität"),
            ("HighResolution", "High resolution", "Hohe Auflösung")], "Image", "QUALITY"),
    Option("KLMColor", ("Output color", "Ausgabefarbe"), "Color",
           [("Color", "Color", "Farbe"), ("BW", "Black and white", "Schwarzweiß")], "Color"),
    Option("KLColorMode", ("Color mode", "Farbmodus"), "Color",
           [("Color", "Color", "Farbe"), ("Grayscale", "Grayscale", "Graustufen")], "Color"),
    Option("KLMGrayline", ("Gray lines", "Graue Linien"), "PrinterDefault",
           [("PrinterDefault", "Printer default", "Druckervorgabe"),
            ("Automatic", "Automatic", "Automatisch"), ("PureBlack", "Black only", "Nur Schwarz"),
            ("Composite", "All colors", "Aus allen Farben")], "Color"),
    Option("JCLColorCorrection", ("Color correction", "Farbkorrektur"), "Auto",
           [("Auto", "Automatic", "Automatisch"), ("None", "None", "Keine"),
            ("Standard", "Vivid", "Kräftig"), ("sRGB", "sRGB display", "sRGB-Anzeige"),
            ("PressMatch", "Press match", "Druckmaschine"),
            ("BlackWhite", "Black and white", "Schwarzweiß")], "Color", "COLORCORRECTION"),
    Option("JCLRGBColorSpace", ("RGB color space", "RGB-Farbraum"), "sRGB",
           [("KalmoRGB", "Kalmo RGB", "Kalmo RGB"), ("sRGB", "sRGB", "sRGB"),
            ("AppleRGB", "Apple RGB", "Apple RGB"), ("AdobeRGB", "Adobe RGB", "Adobe RGB")],
           "Color", "RGBSPACE"),
    Option("JCLCMYKColorSpace", ("CMYK color space", "CMYK-Farbraum"), "EuroScale",
           [("SNAP", "SNAP", "SNAP"), ("SWOP", "SWOP", "SWOP"),
            ("EuroScale", "Euroscale", "Euroskala"), ("Commercial", "Commercial", "Akzidenzdruck"),
            ("JapanColor", "Japan Color", "Japan Color")], "Color", "CMYKSPACE"),
    Option("JCLTrueGrayGraphics", ("Pure gray in graphics", "Reines Grau in Grafiken"), "True",
           ON_OFF, "Color", "TRUEGRAYGRAPHICS", kind="Boolean"),
    Option("JCLTrueGrayImages", ("Pure gray in images", "Reines Grau in Bildern"), "False",
           ON_OFF, "Color", "TRUEGRAYIMAGES", kind="Boolean"),
    Option("Option4", ("Stapler", "Hefter"), "True",
           [("False", "Not installed", "Nicht installiert"), ("True", "Installed", "Installiert")],
           "InstallableOptions", kind="Boolean"),
    Option("Option5", ("Fax", "Fax"), "True",
           [("False", "Not installed", "Nicht installiert"), ("True", "Installed", "Installiert")],
           "InstallableOptions", kind="Boolean"),
    Option("Option8", ("Job storage", "Auftragsspeicher"), "True",
           [("False", "Not installed", "Nicht installiert"), ("True", "Installed", "Installiert")],
           "InstallableOptions", kind="Boolean"),
]

# What cannot be had together: an option ("" = any choice but None) with choices of another.
THIN_OR_STICKY = ["Transparency", "Labels", "HeavyweightLabels", "Envelopes", "Postcard"]
TABS = ["TabStock", "HeavyTabStock"]
HEAVY = ["ExtraHeavyweight", "ExtraHeavyweight2", "ExtraHeavyPlus", "HeavyGlossy", "HeavyGlossy2"]
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
COLOR_ONLY = {"KLMColor", "KLColorMode", "KLMGrayline", "JCLColorCorrection", "JCLRGBColorSpace",
              "JCLCMYKColorSpace", "JCLTrueGrayGraphics", "JCLTrueGrayImages"}


@dataclass
class Model:
    file: str
    name: str
    short: str
    color: bool
    pages_per_minute: int

    def options(self):
        return [o for o in OPTIONS if self.color or o.keyword not in COLOR_ONLY]


MODELS = [
    Model("kalmo-office-color.ppd", "Kalmo Tolvane C7030", "KLC7030.PPD", True, 30),
    Model("kalmo-office-mono.ppd", "Kalmo Tolvane M5045", "KLM5045.PPD", False, 45),
]


def header(model):
    true_false = "True" if model.color else "False"
    return f'''*PPD-Adobe: "4.3"
*% Written by printers/make_printers.py.
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*cupsLanguages: "en de"
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


def code(option, choice):
    if option.jcl:
        return f'"@PJL SET {option.jcl}={choice.upper()}<0A>"'
    size = next((s for s in SIZES if s[0] == choice), None)
    if option.keyword in ("PageSize", "PageRegion"):
        return f'"<</PageSize[{size[1]} {size[2]}]/ImagingBBox null>>setpagedevice"'
    return '""'


def option_block(option):
    jcl = "JCL" if option.jcl else ""
    setup = "JCLSetup" if option.jcl else "AnySetup"
    lines = [f"*{jcl}OpenUI *{option.keyword}/{option.texts[0]}: {option.kind}",
             f"*OrderDependency: {option.order} {setup} *{option.keyword}",
             f"*Default{option.keyword}: {option.default}"]
    lines += [f"*{option.keyword} {key}/{english}: {code(option, key)}"
              for key, english, _ in option.choices]
    return lines + [f"*{jcl}CloseUI: *{option.keyword}", ""]


def dimensions():
    lines = ["*DefaultImageableArea: A4"]
    lines += [f'*ImageableArea {k}/{en}: "{MARGIN} {MARGIN} {w - MARGIN} {h - MARGIN}"'
              for k, w, h, en, _ in SIZES]
    lines += ["*DefaultPaperDimension: A4"]
    return lines + [f'*PaperDimension {k}/{en}: "{w} {h}"' for k, w, h, en, _ in SIZES] + [""]


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
    known = {o.keyword for o in model.options()}
    lines = []
    for left, choice, right, values in CONFLICTS:
        for value in values if {left, right} <= known else []:
            first = f"*{left} {choice}".rstrip()
            lines += [f"*UIConstraints: {first} *{right} {value}",
                      f"*UIConstraints: *{right} {value} {first}"]
    return lines + [""]


def translations(model):
    used = {o.group for o in model.options()}
    lines = [f'*de.Translation {key}/{german}: ""' for key, _, german in GROUPS if key in used]
    for option in model.options():
        lines.append(f'*de.Translation {option.keyword}/{option.texts[1]}: ""')
        lines += [f'*de.{option.keyword} {key}/{german}: ""' for key, _, german in option.choices]
    custom = [("Width", "Breite"), ("Height", "Höhe"), ("WidthOffset", "Versatz quer"),
              ("HeightOffset", "Versatz längs"), ("Orientation", "Ausrichtung")]
    return lines + ['*de.CustomPageSize True/Eigenes Format: ""'] + [
        f'*de.ParamCustomPageSize {key}/{german}: ""' for key, german in custom]


def ppd(model):
    lines = header(model).splitlines() + [""]
    for group, english, _ in GROUPS:
        blocks = [o for o in model.options() if o.group == group]
        lines += [f"*OpenGroup: {group}/{english}", ""] if blocks else []
        for option in blocks:
            lines += option_block(option)
            if option.keyword == "PageRegion":
                lines += dimensions() + custom_size()
        lines += [f"*CloseGroup: {group}", ""] if blocks else []
    fonts = ["*DefaultFont: Courier", '*Font Courier: Standard "(002.004S)" Standard ROM', ""]
    return "\n".join(lines + conflicts(model) + fonts + translations(model)) + "\n"


def feature(option):
    keywords = {key: {"Properties": {}} for key, _, _ in option.choices}
    keywords[option.default]["Default"] = True
    return {"Properties": {"Group": option.group, "PrinterControl": bool(option.jcl)},
            "Syntax": {"Keyword": keywords}}


def main():
    for model in MODELS:
        (HERE / model.file).write_text(ppd(model), encoding="utf-8")
    profile = {"Features": {o.keyword: feature(o) for o in OPTIONS}}
    lines = plistlib.dumps(profile).decode().splitlines(keepends=True)
    # The document type declaration names a file on a server that nothing here needs.
    PROFILE.write_text("".join(l for l in lines if not l.startswith("<!DOCTYPE")))


if __name__ == "__main__":
    main()
