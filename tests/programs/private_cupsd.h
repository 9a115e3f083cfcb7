// A CUPS server of a test's own: real cupsd and filters, own folders, reached by its socket.
//
// Works as root and as any user; several run beside each other; it goes with the test.
#pragma once

#include <cups/cups.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/programs.h"

namespace kalmo::test {

using JobOptions = std::map<std::string, std::string>;

struct FinishedJob {
    int id = 0;
    ipp_jstate_t state = IPP_JSTATE_PENDING;
    /// What the server tells people about it.
    std::string message;
};

class PrivateCupsd {
public:
    /// Starts the server and points CUPS_SERVER, for this program and those it starts, there.
    /// `filterEnvironment` is what filters get in addition; "%OUT%" in a value is outFolder().
    explicit PrivateCupsd(const std::map<std::string, std::string>& filterEnvironment = {});
    ~PrivateCupsd();
    PrivateCupsd(const PrivateCupsd&) = delete;
    PrivateCupsd& operator=(const PrivateCupsd&) = delete;

    /// Empty when the server answers; else why not.
    [[nodiscard]] std::string problem();
    /// Where filters may write, and what is printed arrives: outFolder()/QUEUE.prn.
    [[nodiscard]] std::filesystem::path outFolder() const { return root_ / "out"; }
    /// Everything cupsd and the filters log, at level debug.
    [[nodiscard]] std::string log() const;

    void installFilter(const std::string& name, const std::filesystem::path& program);
    void installFilterScript(const std::string& name, const std::string& script);
    /// A queue that prints into a file. The answer is lpadmin's.
    ProgramEnd addQueue(const std::string& queue, const std::filesystem::path& ppd);

    /// Sends a PDF as `user`; the job's number, 0 on failure.
    int submit(const std::string& queue, const std::filesystem::path& document,
               const JobOptions& options, const std::string& user = "alice");
    /// Waits until the job is printed, cancelled, aborted or, after a failed filter, stopped; 30 s
    /// at most.
    FinishedJob finished(int job);
    /// Every attribute the server tells `user` about the job, one "name=value" line each.
    std::string attributes(int job, const std::string& user);

private:
    void makeFolders();
    void writeConfiguration(const std::map<std::string, std::string>& filterEnvironment);
    void handOverTo(const std::string& group);

    std::filesystem::path root_;
    std::unique_ptr<Program> server_;
};

}  // namespace kalmo::test
