// Weighs data files: a profile of 10,000 invoices packed and taken in, with the working copies that belong to
// it, beside zip and unzip on the same folder. Prints lines "name seconds", which bench/run makes a table of.
//   usage: archive_bench FOLDER        an empty scratch folder on a disk

#include "platform/tree_copy.h"
#include "scratch_home.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace {

using namespace ledra;
using bench::median;
using bench::require;
using bench::say;
using bench::secondsOf;

constexpr int rounds = 5;
constexpr int invoices = 10'000;

void run(const QString& folder, const char* program, const QStringList& arguments)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(QString::fromLatin1(program), arguments);
    require(process.waitForFinished(-1) && process.exitCode() == 0, program);
}

void measurePacking(LedraApp& app, const QString& folder)
{
    const QString own = folder + QStringLiteral("/own.ledradata");
    const QString peer = folder + QStringLiteral("/peer.zip");
    std::vector<double> ownTimes;
    std::vector<double> peerTimes;
    for (int round = 0; round < rounds; ++round) {
        QFile::remove(own);
        QFile::remove(peer);
        ownTimes.push_back(secondsOf([&] {
            require(app.profileExporter().writeAll(own, Overwrite::refuse).has_value(), "not packed");
        }));
        peerTimes.push_back(secondsOf([&] {
            run(app.profileManager().dataFolder(), "zip",
                {QStringLiteral("-r"), QStringLiteral("-q"), peer, QStringLiteral("1_Default")});
        }));
    }
    say("archive_pack_own", median(ownTimes));
    say("archive_pack_zip", median(peerTimes));
}

void measureUnpacking(LedraApp& app, const QString& folder)
{
    const QString own = folder + QStringLiteral("/own.ledradata");
    const QString target = folder + QStringLiteral("/unzipped");
    std::vector<double> ownTimes;
    std::vector<double> peerTimes;
    for (int round = 0; round < rounds; ++round) {
        ownTimes.push_back(secondsOf([&] {
            const auto imported = app.profileImporter().importFile(own);
            require(imported && imported->profiles.size() == 1, "not taken in");
        }));
        QDir(target).removeRecursively();
        require(QDir().mkpath(target), "no folder");
        peerTimes.push_back(secondsOf([&] { run(target, "unzip", {QStringLiteral("-q"), own}); }));
    }
    const auto invoicesOf = [&](const ProfilePtr& profile) {
        return nativePath(*app.profileManager().profileFolder(**profile) + QStringLiteral("/Invoices"));
    };
    const std::vector<ProfilePtr>& profiles = app.profileManager().profiles();
    require(compareTrees(invoicesOf(profiles.front()), invoicesOf(profiles.back())).has_value(),
            "what was taken in differs");
    say("archive_unpack_own", median(ownTimes));
    say("archive_unpack_unzip", median(peerTimes));
}

} // namespace

int main(int argc, char** argv)
{
    require(argc == 2, "usage: archive_bench FOLDER");
    const QCoreApplication application(argc, argv);
    const QString folder = QFileInfo(QString::fromLocal8Bit(argv[1])).absoluteFilePath();
    bench::ScratchHome home(folder);
    home.fill(invoices);
    LedraApp app({.console = home.console, .watchesFolders = false, .loadsInvoices = false});
    measurePacking(app, folder);
    measureUnpacking(app, folder);
    return EXIT_SUCCESS;
}
