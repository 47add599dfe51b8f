// Where the browser's directory list starts: the volumes of the mount table, and the favourite
// and recent directories kept between runs.
#include <gtest/gtest.h>

#include "Proj/Backend.h"
#include "Proj/PreferenceStore.h"
#include "fluxmediabrowser/FavoritesPref.h"
#include "fluxmediabrowser/Places.h"
#include "support/ScopedIgdHome.h"

namespace igd::test {
namespace {

using fluxmediabrowser::Place;

TEST(PlacesTest, MountTableGivesRealVolumesRemovableFirst) {
    const std::string mountInfo =
        "22 1 0:21 / /proc rw,nosuid - proc proc rw\n"
        "25 1 8:2 /@ / rw,relatime shared:1 - btrfs /dev/sda2 rw\n"
        "26 25 8:2 /@home /home rw,relatime shared:2 - btrfs /dev/sda2 rw\n"
        "27 25 0:5 / /dev rw - devtmpfs udev rw\n"
        "28 25 8:1 / /boot/efi rw - vfat /dev/sda1 rw\n"
        "29 25 7:0 / /snap/core/1 ro - squashfs /dev/loop0 ro\n"
        "30 25 0:40 / /tmp rw - tmpfs tmpfs rw\n"
        "31 25 8:33 / /mnt/Archive\\040Drive rw - ext4 /dev/sdc1 rw\n"
        "32 25 179:1 / /media/ed/EOS_DIGITAL rw shared:9 - exfat /dev/mmcblk0p1 rw\n"
        "33 25 8:17 / /mnt/usb rw - fuseblk /dev/sdb1 rw\n"
        "34 25 0:50 / /mnt/server rw - nfs4 nas:/footage rw\n"
        "35 25 0:51 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
        "36 25 0:52 / /var/lib/docker/overlay2/x/merged rw - overlay overlay rw\n"
        "37 25 8:33 /projects /srv/projects rw - ext4 /dev/sdc1 rw\n"
        "garbage line\n";
    std::vector<std::string> asked;
    const std::vector<Place> volumes = fluxmediabrowser::ParseMountedVolumes(mountInfo, [&](const std::string& device) {
        asked.push_back(device);
        return device == "sdb1";
    });
    std::vector<std::pair<std::string, bool>> seen;
    for (const Place& place : volumes) {
        EXPECT_EQ(place.kind, Place::Kind::Volume);
        seen.emplace_back(Fnd::ToUTF8(place.path), place.removable);
    }
    EXPECT_EQ(seen, (std::vector<std::pair<std::string, bool>>{{"/media/ed/EOS_DIGITAL", true},
                                                               {"/mnt/usb", true},
                                                               {"/", false},
                                                               {"/mnt/Archive Drive", false},
                                                               {"/mnt/server", false}}));
    EXPECT_EQ(volumes[0].name, u"EOS_DIGITAL");
    EXPECT_EQ(volumes[3].name, u"Archive Drive");
    EXPECT_NE(std::find(asked.begin(), asked.end(), "sdc1"), asked.end());
}

TEST(PlacesTest, FavouritesAndRecentsSurviveARestart) {
    ScopedIgdHome home;
    auto& favorites = fluxmediabrowser::FavoriteDirectories();
    auto& recents = fluxmediabrowser::RecentDirectories();
    {
        Proj::ScopedBackend backend(Fnd::InterfaceRef<Proj::IPreferences>(
            Proj::PreferenceStore::Open(Proj::PreferenceStore::DefaultPath()).get()));
        favorites = {u"/media/ed/EOS_DIGITAL", u"/mnt/Archive Drive"};
        recents.clear();
        for (int i = 0; i < 12; ++i)
            fluxmediabrowser::AddRecentDirectory(u"/shoot/day" + Fnd::ToDecimal(i));
        fluxmediabrowser::AddRecentDirectory(u"/shoot/day5");
        fluxmediabrowser::WriteFavoritesPref();
    }
    const std::vector<Fnd::WString> savedFavorites = std::exchange(favorites, {});
    const std::vector<Fnd::WString> savedRecents = std::exchange(recents, {});
    ASSERT_EQ(savedRecents.size(), fluxmediabrowser::kMaxRecentDirectories);
    EXPECT_EQ(savedRecents.front(), u"/shoot/day5");
    EXPECT_EQ(savedRecents.back(), u"/shoot/day2");

    Proj::ScopedBackend backend(Fnd::InterfaceRef<Proj::IPreferences>(
        Proj::PreferenceStore::Open(Proj::PreferenceStore::DefaultPath()).get()));
    fluxmediabrowser::ReadFavoritesPref();
    EXPECT_EQ(favorites, savedFavorites);
    EXPECT_EQ(recents, savedRecents);

    const std::vector<Place> places = fluxmediabrowser::ListPlaces();
    ASSERT_FALSE(places.empty());
    EXPECT_EQ(places.front().kind, Place::Kind::Home);
    EXPECT_EQ(places.back(), (Place{Place::Kind::Recent, u"day2", u"/shoot/day2", false}));
    favorites.clear();
    recents.clear();
}

} // namespace
} // namespace igd::test
