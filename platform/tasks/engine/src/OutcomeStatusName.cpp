#include "QL/Engine/TaskServiceMessages.h"

namespace QL::Engine {

std::string_view OutcomeStatusName(OutcomeStatus status) {
    switch (status) {
    case OutcomeStatus::Succeeded:
        return "succeeded";
    case OutcomeStatus::Failed:
        return "failed";
    case OutcomeStatus::Cancelled:
        return "cancelled";
    }
    return "failed";
}

} // namespace QL::Engine
