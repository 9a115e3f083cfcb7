// What a job leaves in a folder.
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <thread>

#include "print_dialog/job_delivery.h"
#include "print_dialog/private_folder.h"
#include "print_dialog/sample_documents.h"

namespace kalmo::test {
namespace {

namespace fs = std::filesystem;

constexpr char kTicket[] = "<plist>a ticket with a secret</plist>";

struct FolderDeliveryTest : testing::Test {
    JobResult deliver(const std::string& title) {
        return DeliverToFolder({.document = document_,
                                .name = "the document",
                                .ticket = kTicket,
                                .title = title,
                                .folder = output_},
                               {state_, [](JobStage, int) {}});
    }

    fs::path document_ = WriteDocument({kPortraitPage});
    fs::path output_ = MakeFolder("out");
    DeliveryState state_;
};

/// As on a network file system, in the thread that calls it.
void RefuseRenamingWithFlags() {
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program = {std::size(filter), filter};
    ASSERT_EQ(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), 0);
    ASSERT_EQ(prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), 0);
}

TEST_F(FolderDeliveryTest, BothFilesGetANameOrNeitherOnANetworkFileSystemToo) {
    WriteFile(output_ / "report.ticket.plist", "somebody's");
    std::thread([this] {
        RefuseRenamingWithFlags();
        EXPECT_EQ(deliver("report").document.filename(), "report 2.pdf");
    }).join();
    EXPECT_FALSE(exists(output_ / "report.pdf"));
    EXPECT_EQ(FilesIn(output_).size(), 3u);
}

TEST_F(FolderDeliveryTest, NamesStayInTheFolder) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"a path", "../../etc/passwd", "_.._etc_passwd.pdf"},
        {"a hidden file", ".profile", "profile.pdf"},
        {"nothing but dots", "..", "document.pdf"},
        {"a line end", "a\nb", "a_b.pdf"},
        {"other letters", "Übersicht é.pdf", "Übersicht é.pdf"},
    };
    for (const auto& [why, title, expected] : rows) {
        SCOPED_TRACE(why);
        EXPECT_EQ(deliver(title).document, output_ / expected);
    }
    const auto longest = deliver(std::string(199, 'x') + "ééé");
    EXPECT_EQ(longest.document.filename(), std::string(199, 'x') + ".pdf");
}

TEST_F(FolderDeliveryTest, CancelledOrFailedItLeavesNothing) {
    const PrivateFolder ofAWorker(output_);
    WriteFile(ofAWorker.path() / "job.pdf", "half of it");
    RemovePrivateFolders();
    EXPECT_TRUE(fs::is_empty(output_)) << "the program ends, the worker is at it";
    WriteFile(document_, "%PDF-1.7 and then nothing");
    const auto damaged = deliver("report");
    EXPECT_EQ(damaged.end, JobResult::End::failed);
    EXPECT_TRUE(damaged.message.starts_with("the document: ")) << damaged.message;
    const auto folder = std::exchange(output_, output_ / "missing");
    EXPECT_TRUE(Contains(deliver("report").message, "missing"));
    output_ = folder;
    state_.cancel();
    EXPECT_EQ(deliver("report").end, JobResult::End::cancelled);
    EXPECT_TRUE(fs::is_empty(output_));
}

}  // namespace
}  // namespace kalmo::test
