#pragma once
// What the panel host tells its listeners, on the station of GetPanelkitStationID.
#include <cstdint>
#include <string_view>

#include "Fnd/Listener.h"
#include "Fnd/WString.h"

namespace QL {

Fnd::StationID GetPanelkitStationID();

// Stage event codes.
inline constexpr std::int32_t kStageEventClosed = 4;
inline constexpr std::int32_t kStageEventBoundsChanged = 6;
inline constexpr std::int32_t kStageEventTitleChanged = 8;

struct StageEvent : Fnd::MessageT<StageEvent> {
    static constexpr std::string_view kTypeName = "QL::StageEvent";
    StageEvent(std::int32_t code, std::int32_t stageID) : eventCode(code), stageID(stageID) {}
    std::int32_t eventCode;
    std::int32_t stageID;
};

// A message of the panel bus: its type names what the data (XML for an answer) means.
struct PanelbusEvent : Fnd::MessageT<PanelbusEvent> {
    static constexpr std::string_view kTypeName = "QL::PanelbusEvent";
    PanelbusEvent(Fnd::WString type, Fnd::WString data) : eventType(std::move(type)), eventData(std::move(data)) {}
    Fnd::WString eventType;
    Fnd::WString eventData;
};

} // namespace QL
