#include "programs/private_cupsd.h"

#include <grp.h>
#include <pwd.h>
#include <unistd.h>

#include "support/dead_servers.h"

namespace kalmo::test {
namespace {

using std::filesystem::path;
using std::filesystem::perms;

using Words = std::map<std::string, std::string>;

/// As root the server gives its filters to lp; another user can only use its own account.
Words ServerAccounts() {
    const bool isRoot = geteuid() == 0;
    const std::string group = isRoot ? "lp" : getgrgid(getegid())->gr_name;
    return {{"%USER%", isRoot ? "lp" : getpwuid(geteuid())->pw_name},
            {"%GROUP%", group},
            {"%SYSTEM_GROUP%", isRoot ? "root" : group},
            {"%LOG_GROUP%", group}};
}

/// A file of tests/programs/cupsd with these words replaced.
std::string Filled(const char* name, const Words& words) {
    std::string text = ReadFile(path(KALMO_SOURCE_DIR) / "tests/programs/cupsd" / name);
    for (const auto& [what, with] : words)
        for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
            text.replace(at, what.size(), with);
    return text;
}

void LinkFolder(const path& from, const path& to) {
    for (const auto& entry : std::filesystem::directory_iterator(from))
        std::filesystem::create_symlink(entry.path(), to / entry.path().filename());
}

/// Asks the server; null when there is no answer.
using IppAnswer = std::unique_ptr<ipp_t, decltype(&ippDelete)>;
IppAnswer AskAboutJob(int job, const std::string& user) {
    ipp_t* request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
    const std::string uri = "ipp://localhost/jobs/" + std::to_string(job);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.c_str());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 user.c_str());
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
                 "all");
    return {cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/"), ippDelete};
}

std::string Text(ipp_attribute_t* attribute) {
    std::string text(ippAttributeString(attribute, nullptr, 0), '\0');
    ippAttributeString(attribute, text.data(), text.size() + 1);
    return text;
}

bool OpenToEverybody(const std::filesystem::directory_entry& entry) {
    return std::filesystem::is_regular_file(entry.symlink_status()) &&
           (entry.status().permissions() & perms::others_read) != perms::none;
}

}  // namespace

std::vector<int> JobsOnTheServer() {
    cups_job_t* jobs = nullptr;
    const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, nullptr, 0, CUPS_WHICHJOBS_ALL);
    std::vector<int> numbers;
    for (int i = 0; i < count; ++i) numbers.push_back(jobs[i].id);
    cupsFreeJobs(count, jobs);
    return numbers;
}

PrivateCupsd::PrivateCupsd(Reach reach, const std::string& printers) {
    // Not in the private home: the filters' account must reach it.
    std::string pattern = std::filesystem::temp_directory_path() / "kalmo-cupsd-XXXXXX";
    root_ = mkdtemp(pattern.data());
    makeFolders();
    installTicketFilter();
    writeConfiguration(reach);
    if (!printers.empty()) WriteFile(root_ / "etc/printers.conf", printers);
    handOverTo(ServerAccounts().at("%GROUP%"));
    server_ = std::make_unique<Program>(ProgramCall{
        .program = "/usr/sbin/cupsd",
        .arguments = {"-f", "-c", root_ / "etc/cupsd.conf", "-s", root_ / "etc/cups-files.conf"}});
    use();
}

void PrivateCupsd::use() const {
    const std::string socket = root_ / "run/cups.sock";
    setenv("CUPS_SERVER", socket.c_str(), 1);
    cupsSetServer(socket.c_str());
}

PrivateCupsd::~PrivateCupsd() {
    server_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
}

void PrivateCupsd::makeFolders() {
    for (const char* folder : {"etc/ssl", "etc/ppd", "spool/tmp", "cache", "run/certs", "log",
                               "out", "bin/filter", "bin/backend", "bin/driver"}) {
        std::filesystem::create_directories(root_ / folder);
    }
    for (const char* folder : {"cgi-bin", "daemon", "monitor", "notifier"})
        std::filesystem::create_symlink(path("/usr/lib/cups") / folder, root_ / "bin" / folder);
    LinkFolder("/usr/lib/cups/filter", root_ / "bin/filter");
    LinkFolder("/usr/lib/cups/backend", root_ / "bin/backend");
}

void PrivateCupsd::installTicketFilter() {
    const path filters = root_ / "bin/filter";
    std::filesystem::remove(filters / "kalmoticket");
    std::filesystem::copy_file(BuiltProgram("kalmoticket"), filters / "kalmoticket-program");
    WriteFile(filters / "kalmoticket", Filled("ticket-recorder", {{"%OUT%", outFolder()}}));
    for (const char* name : {"kalmoticket", "kalmoticket-program"})
        std::filesystem::permissions(filters / name, perms(0755));
}

void PrivateCupsd::writeConfiguration(Reach reach) {
    Words words = ServerAccounts();
    words["@"] = root_;
    for (const char* name : {"cups-files.conf", "cupsd.conf"})
        WriteFile(root_ / "etc" / name, Filled(name, words));
    if (reach == Reach::socket) return;
    const LoopbackSocket free;  // nobody else's a moment ago
    close(free.socket);
    port_ = std::to_string(free.port);
    const path file = root_ / "etc/cupsd.conf";
    WriteFile(file, "Listen 127.0.0.1:" + port_ + "\n" + ReadFile(file));
}

void PrivateCupsd::handOverTo(const std::string& group) {
    std::filesystem::permissions(root_, perms(0755));
    if (geteuid() != 0) return;
    const gid_t id = getgrnam(group.c_str())->gr_gid;
    if (lchown(root_.c_str(), -1, id) != 0) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root_))
        if (lchown(entry.path().c_str(), -1, id) != 0) return;
    std::filesystem::permissions(outFolder(), perms(01777));
    std::filesystem::permissions(root_ / "spool/tmp", perms(01770));
}

std::string PrivateCupsd::problem() {
    http_t* http = nullptr;
    const std::string socket = root_ / "run/cups.sock";
    Wait([&] {
        http = httpConnect2(socket.c_str(), 0, nullptr, AF_UNSPEC, HTTP_ENCRYPTION_IF_REQUESTED, 1,
                            1000, nullptr);
        return http || !server_->running();
    });
    if (!http) return "cupsd does not answer: " + log();
    httpClose(http);
    return {};
}

std::string PrivateCupsd::log() const {
    std::string all;
    for (const char* name : {"error_log", "access_log", "page_log"})
        all += ReadFile(root_ / "log" / name);
    return all;
}

ProgramEnd PrivateCupsd::addQueue(const std::string& queue, const path& ppd) {
    return addQueueOn("file:" + (outFolder() / (queue + ".prn")).string(), queue, ppd);
}

void PrivateCupsd::damagePPD(const std::string& queue, const std::string& bytes) {
    WriteFile(root_ / "etc/ppd" / (queue + ".ppd"), bytes);
}

ProgramEnd PrivateCupsd::addQueueOn(const std::string& device, const std::string& queue,
                                    const path& ppd) {
    std::vector<std::string> arguments = {"-p", queue, "-v", device, "-E"};
    if (!ppd.empty()) arguments.insert(arguments.end(), {"-P", ppd});
    return RunProgram({.program = "/usr/sbin/lpadmin", .arguments = arguments});
}

bool PrivateCupsd::printed(int job) {
    int state = IPP_JSTATE_PENDING;
    Wait([&] {
        const IppAnswer answer = AskAboutJob(job, "alice");
        state = ippGetInteger(ippFindAttribute(answer.get(), "job-state", IPP_TAG_ENUM), 0);
        return state >= IPP_JSTATE_STOPPED;
    });
    EXPECT_EQ(state, IPP_JSTATE_COMPLETED) << log();
    return state == IPP_JSTATE_COMPLETED;
}

std::string PrivateCupsd::attributes(int job, const std::string& user) {
    const IppAnswer answer = AskAboutJob(job, user);
    std::string lines;
    for (auto* attribute = ippFirstAttribute(answer.get()); attribute;
         attribute = ippNextAttribute(answer.get())) {
        if (!ippGetName(attribute)) continue;
        lines += std::string(ippGetName(attribute)) + "=" + Text(attribute) + "\n";
    }
    return lines;
}

std::string PrivateCupsd::leaks(int job, const std::string& secret) {
    std::map<std::string, std::string> seen = {{"attributes", attributes(job, "bob")},
                                               {"logs", log()}};
    for (const char* name : {"options", "commands"}) seen[name] = ReadFile(outFolder() / name);
    std::string places;
    for (const auto& [place, text] : seen) {
        if (text.find("com.kalmo.print.ticket=") == std::string::npos)
            places += place + ": the job is not seen\n";
    }
    for (const path& folder : {root_, path(getenv("HOME"))}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            if (OpenToEverybody(entry)) seen[entry.path()] = ReadFile(entry);
    }
    for (const auto& [place, text] : seen)
        if (text.find(secret) != std::string::npos) places += place + '\n';
    return places;
}

}  // namespace kalmo::test
