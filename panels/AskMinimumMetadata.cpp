#include <chrono>
#include <thread>

#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestSequence.h"
#include "IGD/MinimumMetadataApi.h"
#include "Proj/PreferenceAccess.h"
#include "QL/IngestMessages.h"
#include "pipeline/entry/IngestRequest.h"
#include "panels/ShowMinimumMetadataPanel.h"

namespace IGD {
namespace {

constexpr auto kWaitPause = std::chrono::milliseconds(10);

struct FinishedListener : Fnd::Listener {
    FinishedListener() { Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this); }
    ~FinishedListener() override { Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this); }
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        if (const auto* finished = Fnd::MessageCast<QL::MiniMetadataFinishedMessage>(message))
            if (!heard)
                heard = *finished;
    }
    std::optional<QL::MiniMetadataFinishedMessage> heard;
};

std::vector<Fnd::WString> ItemPaths(const std::vector<IngestDialogDataRef>& sessions) {
    std::vector<Fnd::WString> paths;
    for (const IngestDialogDataRef& session : sessions) {
        const std::vector<Fnd::WString> ofSession = FullItemPaths(*session);
        paths.insert(paths.end(), ofSession.begin(), ofSession.end());
    }
    return paths;
}

} // namespace

std::optional<QL::MinimumMetadataResult> AskMinimumMetadata(const std::vector<IngestDialogDataRef>& sessions) {
    FinishedListener listener;
    const boost::intrusive_ptr<fluxui::ui::UI_Dialog> modeless =
        Proj::GetPreferences() ? DoMinimumMetadataDialog(ItemPaths(sessions))
                               // A host running on defaults, its preferences unreadable, still asks: a
                               // site that installed a panel wants its metadata.
                               : ShowMinimumMetadataPanel(ItemPaths(sessions));
    Fnd::GetDefaultQueue().Drain();
    // A modeless panel answers on its own time; without a dialog to wait on, a modal one has
    // ended, and no message by now means it closed without an answer.
    while (modeless && !listener.heard) {
        std::this_thread::sleep_for(kWaitPause);
        Fnd::GetDefaultQueue().Drain();
    }
    if (!listener.heard || !listener.heard->success)
        return std::nullopt;
    return std::move(listener.heard->result);
}

} // namespace IGD
