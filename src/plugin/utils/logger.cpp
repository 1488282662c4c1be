#include "plugin/utils/logger.h"

#include <glog/logging.h>

#include <string>

#include "plugin/utils/strings.h"

namespace Velmar {

namespace {

/// Whether this library has started the log and not yet ended it.
bool started_here = false;
/// How often it has started the log.
int starts = 0;

void startLog() {
    if (google::IsGoogleLoggingInitialized()) return;
    google::InitGoogleLogging("VelmarPlugin");
    started_here = true;
    ++starts;
}

/// Start of the log file's name. The log puts the second and the process behind it and takes no name twice, so a log
/// that is started again has a number of its own.
std::string filePrefix(const std::string& logs) {
    return logs + "/VelmarSketchup" + (starts > 1 ? "-" + std::to_string(starts) + "-" : "");
}

/// Makes the tree under `base` and answers the logs folder.
std::string makeFolders(const std::string& base) {
    const std::string sketchup = base + "/SketchUp";
    const std::string temp = sketchup + "/temp";
    const std::string logs = sketchup + "/logs";
    for (const std::string& folder : {base, sketchup, temp, logs}) Strings::MakeFolder(folder, true);
    for (const std::string& folder : {temp + "/previews", temp + "/textures"}) {
        Strings::MakeFolder(folder, true);
        Strings::RegisterFolderForCleanup(folder);
    }
    return logs;
}

/// One file takes all severities; no link beside it, nothing in the system's temporary folder, nothing on stderr.
void keepToOneFile() {
    for (int severity = google::GLOG_WARNING; severity < google::NUM_SEVERITIES; ++severity) {
        google::SetLogDestination(severity, "");
    }
    google::SetLogSymlink(google::GLOG_INFO, "");
    FLAGS_stderrthreshold = google::GLOG_FATAL;
    FLAGS_minloglevel = google::GLOG_INFO;
}

}  // namespace

void Logger::Init() {
    startLog();
    std::string home = Strings::GetUserHome();
    Strings::CleanFilePath(home);
    const std::string logs = makeFolders(home + "/Documents/Velmar");
    google::SetLogDestination(google::GLOG_INFO, filePrefix(logs).c_str());
    if (started_here) keepToOneFile();
    google::FlushLogFiles(google::GLOG_ERROR);
    FLAGS_v = 0;
    FLAGS_logbuflevel = -1;
}

void Logger::Shutdown() {
    if (!started_here) return;
    started_here = false;
    if (!google::IsGoogleLoggingInitialized()) return;
    google::ShutdownGoogleLogging();
    // A log that has ended would print to stderr from now on.
    FLAGS_minloglevel = google::GLOG_FATAL;
}

}  // namespace Velmar
