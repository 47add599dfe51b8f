// The shipped minimum-metadata panel run as the person runs it: a real Qt window turned by the
// panel's own loop, typed into, confirmed, and written to <build>/screenshots/minimum-metadata.png.
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "Fnd/StationUtils.h"
#include "IGD/MinimumMetadataApi.h"
#include "IgdQt/QtInteractionDriver.h"
#include "IgdQt/QtRunLoop.h"
#include "PanelkitManager/LocalPanelHost.h"
#include "Proj/Backend.h"
#include "Proj/PreferenceStore.h"
#include "QL/IngestMessages.h"
#include "QtTestApplication.h"
#include "support/ScopedIgdHome.h"

namespace igd::test {
namespace {

struct FinishedRecorder : Fnd::Listener {
    FinishedRecorder() { Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this); }
    ~FinishedRecorder() override { Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this); }
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        if (const auto* finished = Fnd::MessageCast<QL::MiniMetadataFinishedMessage>(message))
            messages.push_back(*finished);
    }
    std::vector<QL::MiniMetadataFinishedMessage> messages;
};

TEST(MinimumMetadataQtTest, TheShippedPanelIsTypedIntoAndConfirmedInAModalWindow) {
    EnsureQtApplication();
    ScopedIgdHome home;
    Proj::ScopedBackend backend(Fnd::InterfaceRef<Proj::IPreferences>(
        Proj::PreferenceStore::Open(Proj::PreferenceStore::DefaultPath()).get()));
    PanelkitManager::PanelHost::Install(
        PanelkitManager::MakeLocalPanelHost({{PanelkitManager::ShippedPanelsFolder()}}));
    auto loop = igd::qt::QtRunLoop::Install();
    Fnd::SetInteractionDriver(std::make_shared<igd::qt::QtInteractionDriver>());
    FinishedRecorder recorder;

    bool worked = false;
    QString shotPath;
    auto* timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [&, timer] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return;
        timer->stop();
        timer->deleteLater();
        worked = true;
        EXPECT_EQ(modal->windowTitle(), QStringLiteral("Minimum Metadata"));
        const auto edits = modal->findChildren<QLineEdit*>();
        ASSERT_GE(edits.size(), 5);
        QTest::keyClicks(edits[0], QStringLiteral("Night Shoot"));
        QTest::keyClicks(edits[1], QStringLiteral("4B"));
        QTest::keyClicks(edits[4], QStringLiteral("rain, night"));
        // Return in a field belongs to the field: the panel stays.
        QTest::keyClick(edits[1], Qt::Key_Return);
        ASSERT_TRUE(modal->isVisible());
        const QDir directory(QStringLiteral(IGD_SCREENSHOT_DIR));
        ASSERT_TRUE(QDir().mkpath(directory.path()));
        shotPath = directory.filePath(QStringLiteral("minimum-metadata.png"));
        EXPECT_TRUE(modal->grab().toImage().save(shotPath, "PNG"));
        for (QPushButton* button : modal->findChildren<QPushButton*>())
            if (button->text() == QStringLiteral("OK"))
                QTest::mouseClick(button, Qt::LeftButton);
    });
    timer->start();

    EXPECT_FALSE(IGD::DoMinimumMetadataDialog({u"/card/A001.MOV"}));
    EXPECT_TRUE(worked);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "the window went away with the run";
    QCoreApplication::processEvents();
    ASSERT_EQ(recorder.messages.size(), 1u);
    const auto& result = recorder.messages.front().result;
    EXPECT_TRUE(recorder.messages.front().success);
    ASSERT_EQ(result.namespaces.size(), 1u);
    EXPECT_EQ(result.namespaces.front()->presetName, u"shoot");
    EXPECT_EQ(result.namespaces.front()->values.at(u"production"), u"Night Shoot");
    EXPECT_EQ(result.namespaces.front()->values.at(u"scene"), u"4B");
    EXPECT_EQ(result.keywords, (std::set<Fnd::WString>{u"night", u"rain"}));
    EXPECT_TRUE(result.applyToAllDestinations) << "the shipped panel applies to all destinations unless unticked";

    Fnd::SetInteractionDriver(nullptr);
    Fnd::SetRunLoop(nullptr);
}

} // namespace
} // namespace igd::test
