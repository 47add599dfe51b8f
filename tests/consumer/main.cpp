// A host that ingests one file to one folder without a dialog, as a plug-in of another program
// would: it installs the real task service, hands the library a session, and runs its UI queue
// until the copy is verified and imported. Exit 0 when the copy holds the source's bytes.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>

#include "Fnd/RunLoop.h"
#include "IGD/IIngestDialogData.h"
#include "IGD/IngestApi.h"
#include "QL/CopySetting.h"
#include "QL/Engine/TaskService.h"

namespace {

std::string Contents(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: igd_consumer FILE FOLDER PROJECT\n";
        return 2;
    }
    const std::filesystem::path file = std::filesystem::absolute(argv[1]);
    const std::filesystem::path folder = std::filesystem::absolute(argv[2]);

    QL::Engine::TaskServiceOptions options;
    options.projectPath = std::filesystem::absolute(argv[3]).string();
    const auto service = std::make_shared<QL::Engine::TaskService>(options);
    QL::IngestTask::SetTaskService(service);

    const IGD::IngestDialogDataRef session = IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
    IGD::IngestDestinationRef destination(new IGD::IngestDestination);
    destination->SetDestinationPath(Fnd::FromUTF8(folder.string()));
    destination->SetPrimary(true);
    destination->SetEnabled(true);
    destination->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());
    session->AddDestination(destination);
    session->SetImportOnly(false);
    session->SetVerifyMode(QL::IngestTask::kVerifyMD5);
    IGD::DoIngestOneMedia(Fnd::FromUTF8(file.string()), session, Fnd::Date::Now(), true);

    // The host's event loop: the library and the service report through the UI queue.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(2);
    do {
        Fnd::GetDefaultQueue().Drain();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    } while (!service->IsIdle() && std::chrono::steady_clock::now() < deadline);
    Fnd::GetDefaultQueue().Drain();
    QL::IngestTask::SetTaskService(nullptr);

    const std::filesystem::path copy = folder / file.filename();
    if (!std::filesystem::exists(copy) || Contents(copy) != Contents(file)) {
        std::cerr << "igd_consumer: " << copy << " is not a whole copy of " << file << "\n";
        return 1;
    }
    std::cout << "ingested " << copy.string() << "\n";
    return 0;
}
