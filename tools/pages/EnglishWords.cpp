#include "pages/EnglishWords.h"

#include <algorithm>
#include <span>

namespace
{
struct CommandRow
{
    std::string_view name;
    std::string_view help;
    std::string_view notes = {};
};

struct OptionRow
{
    std::string_view name;
    std::string_view help;
    /// The one command where it means this; empty for all others.
    std::string_view command = {};
};

constexpr CommandRow commandRows[] = {
    {"info", "tell the kind of a delivery, its number of photographs and its items",
     "Output: {\"family\",\"section\",\"errorType\",\"hasKeyPhoto\",\"rootPath\",\"title\","
     "\"photoCount\",\"managementItems\":[{\"title\",\"value\"}]}\n"
     "errorType: 0 READITEM.XML is missing, 1 PHOTO.XML is of no known kind, 2 no photograph, "
     "3 the item definitions can't be read, 4 sound, null PHOTO.XML can't be read\n"
     "Adds \"adoptedValues\", the values read from other places than the standard's, and "
     "\"photoElements\" where some photographs can't be read."},
    {"check", "check a received delivery by the rules of its standard",
     "Output: {\"edition\",\"standard\",\"owner\",\"findings\":[{\"rule\",\"grade\":"
     "\"error|warning|hint\",\"photos\":[numbers],\"file\",\"item\",\"text\",\"action\"}],"
     "\"notRun\":[{\"rule\",\"why\"}]}\n"
     "Exit status: 0 no error found, 3 errors found; 1, 2 and 130 as in the other commands."},
    {"dates", "compare what the clocks say of each photograph",
     "Output: [{\"index\",\"rungs\":{\"写真\":撮影年月日,\"exif\",\"digitized\",\"changed\","
     "\"gps\":UTC,\"file\"},\"findings\":[{\"kind\",\"grade\":\"fact|hint\",\"text\"}]}]\n"
     "A fact is a difference between what is written, a hint may have a harmless reason; neither "
     "is a verdict."},
    {"coverage", "count the photographs by work and 写真区分, and tell which partners are missing",
     "Output: {\"rows\":[{\"工種\",\"種別\",\"細別\",\"写真区分\",\"count\",\"key\","
     "\"submitted\",\"judged\",\"ng\"}],\"missing\":[{\"where\",\"has\",\"lacks\","
     "\"photos\":[numbers]}]}"},
    {"sample", "draw the photographs to be looked at, the same on every machine",
     "Output: {\"sample\":[numbers],\"terms\":{\"text\",\"rate\",\"least\",\"seed\","
     "\"method\",\"photos\"}}\n"
     "The terms and the sample stay in the record that --record names.\n"
     "All 代表写真 and 提出頻度写真, a share of the rest, and of each 細別 no fewer than some."},
    {"doubles", "find photographs of which there is more than one",
     "Output: {\"pairs\":[{\"kind\":\"bytes|picture|moment\",\"photos\":[numbers],"
     "\"other\":{\"id\",\"delivery\",\"index\",\"file\"},\"distance\"}]}\n"
     "bytes is the same file, picture the same picture encoded anew, scaled or slightly cut, by "
     "its "
     "pixels, moment another picture of the same camera and second. A pair with an earlier "
     "delivery has one number, and the other one in \"other\"."},
    {"register", "keep earlier deliveries for tovi doubles --register",
     "Output: {\"name\",\"photos\"} of add, [{\"id\",\"name\",\"path\",\"photos\",\"added\"}] of "
     "list."},
    {"photos", "tell all photographs in the order of PHOTO.XML",
     "Output: [{\"index\",\"imagePath\",\"pictures\":[reference drawings],"
     "\"items\":[{\"title\",\"value\"}]}]\n"
     "--facts adds \"fileExists\" (the photograph and its drawings), \"width\" and \"height\"; "
     "--record adds \"labels\" and \"comment\"."},
    {"tree", "tell the classification tree",
     "Output: {\"title\",\"indexes\":[photographs],\"children\":[...]}"},
    {"select",
     "choose photographs by node and conditions and tell their numbers in the order shown",
     "Output: {\"path\",\"current\":[photographs],\"selectedPhoto\"} (-1 for none)"},
    {"sheet", "make a contact sheet of the chosen photographs"},
    {"label", "put labels and comments on photographs and save the inspection record",
     "An existing record is read first and saved to the same file. While another program uses it, "
     "this one waits up to 30 seconds. Of OK and NG only one stays; the label for comments follows "
     "the comment.\nOutput: what has changed, [{\"index\",\"labels\",\"comment\"}]"},
    {"correct", "correct the labels of all photographs of a node"},
    {"record", "tell what an inspection record holds",
     "Output: [{\"index\",\"labels\",\"comment\"}]\n"
     "Labels: 0 OK, 1 to 3 NG1 to NG3, 4 comment, 5 free"},
    {"return", "make an inspection record that holds the paths of the photographs, too"},
    {"exif", "tell what Exif and the file system say of the photographs",
     "Output: [{\"index\",\"hasExif\",\"date\":[{\"item\",\"value\"}],\"image\",\"maker\","
     "\"format\",\"shoot\",\"gps\",\"file\":{...}}]"},
    {"values", "tell the control values of the photographs as a table",
     "Output: "
     "[{\"index\",\"valid\",\"values\":[{\"name\",\"design\",\"actual\",\"difference\"}]}]\n"
     "A text that can't be read has \"valid\" false and no values; tovi photos tells the text."},
    {"pairs", "tell the list of items as the settings show it",
     "Output: [{\"index\",\"pairs\":[{\"item\",\"value\"}]}]"},
    {"settings", "tell and change the stored settings",
     "Output: {\"settings\":{name:value},\"items\":[{\"item\",\"shown\",\"kind\"}]} (items where a "
     "delivery is given)\nThe names and values stand in tovi settings --help."},
    {"verify", "detect photographs that were altered after they were taken",
     "Judges by RVRFYJPG.so and JACICCHS.so in the folder of the program.\n"
     "Output: [{\"index\",\"result\":\"none|unaltered|altered|unknown\"}]"},
    {"index", "make a copy of the construction management file for a browser",
     "Output: {\"path\"}\nIt stands in IndexCopy in the work folder, a folder for each delivery, "
     "and "
     "goes when another one is made 30 days later."},
    {"export", "copy the files of the chosen photographs as they are",
     "Output: {\"folder\",\"photos\",\"copied\",\"bytes\",\"missing\":[names],"
     "\"failed\":[{\"name\",\"index\",\"reason\"}],\"cancelled\"}"},
    {"combine", "open a delivery that is spread over several discs",
     "Output: {\"dataFolder\",\"photos\",\"found\",\"missing\":[files]}\n"
     "Photographs on optical discs and USB sticks are copied into the work folder and can be "
     "opened "
     "from dataFolder."},
    {"report", "write the list of the inspection's results to a spreadsheet file",
     "Output: {\"file\",\"photos\",\"pages\"}\n"
     "Takes LibreOffice Calc. Ctrl+C leaves the file that was there."}};

constexpr OptionRow optionRows[] = {
    {"DELIVERY",
     "PHOTO.XML or INDEX_*.XML, the folder that holds it or stands above it, or a ZIP file or "
     "ISO image with it"},
    {"--family", "the family of standards: auto (told from the DTD and others), mlit, kowan, maff, "
                 "nexco"},
    {"--profile", "the file of settings"},
    {"--facts", "look at the files, too: whether they are there and how large the pictures are"},
    {"--record", "the file of the inspection record"},
    {"--force", "read the record even where it looks like another delivery's"},
    {"--type", "the tree (the stored setting if not given): 0 by 大分類, 1 by 撮影箇所, 2 by 工種"},
    {"--node", "the title of a node, from the root downwards, repeated"},
    {"--label", "the photographs with this label (0 OK, 1 to 3 NG1 to NG3, 4 comment, 5 free)"},
    {"--and", "photographs that meet all conditions (default)"},
    {"--or", "photographs that meet any condition"},
    {"--key-photo", "condition: 代表写真"},
    {"--ng", "condition: NG"},
    {"--unchecked", "condition: not inspected"},
    {"--no-exif", "condition: without Exif"},
    {"--missing-required", "condition: a required item is empty"},
    {"--item", "condition: the value of an item; up to three, an empty value is 【未記入】"},
    {"--text", "photographs that have all these words in items, comment or file names; width, kana "
               "and case don't matter"},
    {"--date-from", "condition: taken on this day or later"},
    {"--date-to", "condition: taken on this day or earlier"},
    {"--file-date", "look at the file's date instead"},
    {"--sort", "sort by this item"},
    {"--descending", "the other way round"},
    {"OUT",
     "the file to make, .png (default) or .jpg; - is standard output (PNG); never in a delivery",
     "sheet"},
    {"OUT", "the file to make; - is standard output; never in a delivery", "return"},
    {"OUT", "the file to make, .xls (default), .xlsx, .ods or .pdf; never in a delivery", "report"},
    {"FILE", "the file of the inspection record", "record"},
    {"FOLDER", "the folder to save to: not in a delivery, and without files of these names",
     "export"},
    {"--columns", "how many side by side (1 to 100, 5 if not given)"},
    {"--at", "numbers of photographs, from 0: 0,3,5-9"},
    {"--paste", "a label to paste (0 OK, 1 to 3 NG1 to NG3, 4 comment, 5 free); may be repeated"},
    {"--remove",
     "a label to take off (0 OK, 1 to 3 NG1 to NG3, 4 comment, 5 free); may be repeated"},
    {"--comment", "the comment; an empty one removes it"},
    {"--clear", "remove all labels and comments first"},
    {"--action", "ok (OK on all without NG), unchecked (take off OK and NG), clear (remove all)"},
    {"--set", "change a setting; may be repeated, and nothing is changed where one is wrong"},
    {"--types", "the detectors in their order: 0 RICOH G800/G700/G600, 1 electronic blackboards, "
                "2 RICOH G900; those of the settings if not given"},
    {"--html", "make an HTML page for any browser instead of a copy of the XML file"},
    {"--next", "the folders of the other discs, in order"},
    {"--owner",
     "by whose rules to check: auto (those of the family, default), mlit, kowan, maff, nexco"},
    {"--rules",
     "a table of rules of your own: a line \"rule,error|warning|hint|off\" changes the grade of "
     "a built-in rule, a line \"name,grade,item,condition,value,sentence\" adds one; "
     "conditions are required, longest, one-of, like, without"},
    {"--format", "the form of the output: json (default), csv or text"},
    {"--format", "the form of the output: json (default) or csv", "coverage"},
    {"--register", "compare with the deliveries in the register, too"},
    {"ACTION", "add puts a delivery in, list tells all, remove takes one out"},
    {"DELIVERY", "the delivery for add, the number in the list for remove", "register"},
    {"--rate", "the share of the rest in percent, 10 if not given"},
    {"--least", "how many of each 細別 at least, 3 if not given"},
    {"--seed", "where the draw begins: the same delivery, terms and seed give the same sample"},
    {"--quick", "don't read what is in the files"}};

std::string_view HelpOf(std::string_view command, std::string_view option)
{
    const auto* const row = std::ranges::find_if(optionRows, [&](const OptionRow& each) {
        return each.name == option && each.command == command;
    });
    return row == std::end(optionRows) ? std::string_view() : row->help;
}

const CommandRow* RowOf(std::string_view command)
{
    const auto* const row = std::ranges::find(commandRows, command, &CommandRow::name);
    return row == std::end(commandRows) ? nullptr : row;
}
} // namespace

std::string_view EnglishOfCommand(std::string_view command)
{
    const CommandRow* const row = RowOf(command);
    return row == nullptr ? std::string_view() : row->help;
}

std::string_view EnglishNotes(std::string_view command)
{
    const CommandRow* const row = RowOf(command);
    return row == nullptr ? std::string_view() : row->notes;
}

std::string_view EnglishOfOption(std::string_view command, std::string_view option)
{
    const std::string_view itsOwn = HelpOf(command, option);
    return itsOwn.empty() ? HelpOf({}, option) : itsOwn;
}
