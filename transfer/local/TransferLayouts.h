#pragma once
// The two layout families of the local transfer stack. A hosted application gives the
// destinations itself, so its family has no subfolder, no transcode checkbox and no way to add one.
namespace IGD {

struct TransferLayouts {
    const char* transferHeader;
    const char* primaryHeader;
    const char* backupHeader;
    const char* path;
    const char* transcode;
    // Null: destinations cannot be added.
    const char* addDestination;

    static const TransferLayouts& For(bool kilnHosted) {
        static constexpr TransferLayouts normal{"igdLocalTransferHeader", "igdPrimaryDestinationHeader",
                                                "igdBackupDestinationHeader", "igdPathSetting",
                                                "igdTranscodeSetting", "igdAddDestination"};
        static constexpr TransferLayouts hosted{"igdKilnHostedTransferHeader", "igdKilnHostedPrimaryDestinationHeader",
                                                "igdKilnHostedBackupDestinationHeader", "igdKilnHostedPathSetting",
                                                "igdKilnHostedTranscodeSetting", nullptr};
        return kilnHosted ? hosted : normal;
    }
};

} // namespace IGD
