#include "AppFrame/ShortcutManager.h"
#include "IGD/IngestDialogApi.h"
#include "fluxcore/ZString.h"

namespace IGD {
namespace {

constexpr int kShortcutCommandKind = 2;

struct DialogCommand {
    const char* commandString;
    int number;
    const char* label;
};

// Declared with no key: the person binds them. The directory command clears the recent list; its
// string is older than its label.
constexpr DialogCommand kDialogCommands[] = {
    {"cmd.common.setin", 12065, "$$$/Quillon/FrontEnd/SetInPoint=Set In Point"},
    {"cmd.common.setout", 12066, "$$$/Quillon/FrontEnd/SetOutPoint=Set Out Point"},
    {"cmd.clear.inandout", 12071, "$$$/Quillon/Libraries/IngestDialog/ClearInOutPoint=Clear In Out Points"},
    {"cmd.ingestdialog.selectdirectorylist", 30205,
     "$$$/Quillon/Libraries/IngestDialog/SelectDirectoryList=Select Directory List"},
    {"cmd.ingestdialog.selectmediaview", 30206, "$$$/Quillon/Libraries/IngestDialog/SelectMediaList=Select Media List"},
    {"cmd.ingestdialog.directory.selected", 30207,
     "$$$/Quillon/Libraries/IngestDialog/ClearRecentDirectory=Clear Recent Directories"},
    {"cmd.ingestdialog.ingestdialog.switchtolistview", 30212,
     "$$$/Quillon/Libraries/IngestDialog/SwitchToListView=Switch to List View"},
    {"cmd.ingestdialog.ingestdialog.switchtothumbnailview", 30213,
     "$$$/Quillon/Libraries/IngestDialog/SwitchToIconView=Switch to Icon View"},
    {"cmd.ingestdialog.ingestdialog.checkall", 30208, "$$$/Quillon/Libraries/IngestDialog/CheckAll=Check All"},
    {"cmd.ingestdialog.ingestdialog.uncheckall", 30209, "$$$/Quillon/Libraries/IngestDialog/UnCheckAll=Uncheck All"},
    {"cmd.ingestdialog.listview.editcolumns", 30214,
     "$$$/Quillon/Libraries/IngestDialog/EditListViewColumns=Edit Columns in List View"},
    {"cmd.ingestdialog.search", 30210, "$$$/Quillon/Libraries/IngestDialog/Search=Filter"},
    {"cmd.ingestdialog.setcheck", 30211, "$$$/Quillon/Libraries/IngestDialog/SetCheck=Check Selected Item(s)"},
};

void DeclareIngestDialogContext(AppFrame::ShortcutManager& shortcuts) {
    AppFrame::CommandContext& context =
        shortcuts.AddContext(fluxcore::utility::ImmutableString("ingestdialog"),
                             fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/IngestDialogContext=Ingest Dialog"));
    for (const DialogCommand& command : kDialogCommands)
        context.DeclareCommand(fluxcore::utility::ImmutableString(command.commandString), command.number,
                               kShortcutCommandKind, fluxcore::Localize(command.label),
                               fluxcore::utility::ImmutableString(), false);
}

} // namespace

void IngestDialogRegister() {
    AppFrame::ShortcutManager::Instance().RegisterCommandContext(DeclareIngestDialogContext);
}

} // namespace IGD
