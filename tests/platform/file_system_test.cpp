#include "Fault.h"
#include "FileSystem.h"
#include "Refusals.h"
#include "ScriptedDesktop.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace veskora {
namespace {

using WholeFile = StoreTest;

TEST_F(WholeFile, ASecondRunningCopyHasItsScratchFileElsewhere)
{
    fs::create_directory(path("other"));
    const int lock = ::open(path("other").c_str(), O_RDONLY);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const std::string folder = scratchFolder(path("other"));
    ::close(lock);
    EXPECT_NE(folder, path("other"));
    EXPECT_TRUE(isWritableFolder(folder));
    EXPECT_EQ(fs::status(folder).permissions() & fs::perms(077), fs::perms::none);
    EXPECT_EQ(scratchFolder(path("")), path(""));
}

TEST_F(WholeFile, WhatComesWithTheProgramIsBesideItOrInTheInstalledTree)
{
    EXPECT_EQ(suppliedFilesFolder(path("tree/bin")), path("tree/bin"));
    fs::create_directories(path("tree/share/veskora-ml"));
    EXPECT_EQ(suppliedFilesFolder(path("tree/bin")), path("tree/share/veskora-ml"));
    fs::rename(path("tree"), path("moved"));
    EXPECT_EQ(suppliedFilesFolder(path("moved/bin")), path("moved/share/veskora-ml"));
}

TEST_F(WholeFile, LinksAreFollowedAndModesKept)
{
    fs::create_directory(path("real"));
    write(path("real/m.vsk"), "old");
    ::chmod(path("real/m.vsk").c_str(), 0640);
    fs::create_symlink("real/m.vsk", path("link.vsk"));
    writeWholeFile(path("link.vsk"), "new", Durability::onDisk);
    EXPECT_TRUE(fs::is_symlink(path("link.vsk")));
    EXPECT_EQ(contentOf(path("real/m.vsk")), "new");
    EXPECT_EQ(fs::status(path("real/m.vsk")).permissions(), fs::perms(0640));
    fs::create_symlink("real/new.vsk", path("dangling.vsk"));
    writeWholeFile(path("dangling.vsk"), "new", Durability::onDisk);
    EXPECT_EQ(contentOf(path("real/new.vsk")), "new");
    fs::create_symlink("loop", path("loop"));
    EXPECT_THROW(writeWholeFile(path("loop"), "new", Durability::onDisk), Fault);
}

// Whatever refuses, and whether a new file takes the place of the old one or not: owner, group,
// mode, access list and links stay, and the old content is nowhere lost.
TEST_F(WholeFile, TheOldFileOrTheNewOneIsThereWithAllItHas)
{
    enum Kind { plain, linked, foreign, listed };
    struct Case
    {
        Kind kind;
        std::vector<Refusal> refused;
        bool sameFile;
        std::string fault; ///< none: the new content is there
    };
    const std::string full = "No space left on device", broken = "Input/output error";
    const std::string damaged = full + "; the old file is damaged, ";
    for (const Case &c : {
             Case{plain, {}, false, ""}, Case{plain, {{"fsync", EINVAL}}, false, ""},
             Case{plain, {{"fsync", EOPNOTSUPP}}, false, ""},
             Case{plain, {{"fsync", EIO}}, true, broken},
             Case{plain, {{"write", ENOSPC}}, true, full},
             Case{plain, {{"fchmod", EPERM}}, true, ""}, Case{linked, {}, true, ""},
             Case{foreign, {}, false, ""},
             Case{foreign, {{"fchown", EPERM, 2}}, true, ""}, // the owner, not the group
             Case{listed, {}, true, ""},
             // The first write is that of the copy, the third the writing back.
             Case{linked, {{"read", EIO}}, true, broken},
             Case{linked, {{"write", ENOSPC, 2, 2}}, true, full},
             Case{linked, {{"write", ENOSPC, 2}}, true, damaged + "its content is kept in "},
             Case{linked, {{"write", ENOSPC}}, true, damaged + "and its content could not be kept"},
             Case{linked, {{"write", ENOSPC, 1, 5}}, true, damaged + "its content is kept in "},
             Case{linked, {{"fsync", EIO}}, true, broken}, // but it is written back
         }) {
        SCOPED_TRACE(testing::Message() << c.kind << (c.refused.empty() ? "" : c.refused[0].call));
        const std::string folder = path("folder/"), file = folder + "m.vsk",
                          old = "the old content", content = "a new one, which is longer";
        fs::remove_all(folder);
        fs::create_directory(folder);
        write(file, old);
        ::chmod(file.c_str(), 0640);
        if (c.kind == linked)
            fs::create_hard_link(file, folder + "other name");
        if (c.kind == foreign && ::chown(file.c_str(), 65534, 65533) != 0)
            continue; // only the superuser can
        // Tag, permission and user of each entry: owner rw, user 1234 r, group r, mask r, others -.
        constexpr std::uint16_t any = 0xFFFF;
        constexpr std::uint16_t list[] = {2, 0,   1,   6,  any, any, 2,   4,  1234, 0,   4,
                                          4, any, any, 16, 4,   any, any, 32, 0,    any, any};
        if (c.kind == listed
            && ::setxattr(file.c_str(), "system.posix_acl_access", list, sizeof(list), 0) != 0)
            continue; // the file system has none
        struct stat before = {}, after = {};
        ::stat(file.c_str(), &before);
        std::string fault;
        refusals = c.refused;
        try {
            writeWholeFile(file, content, Durability::onDisk);
        } catch (const Fault &thrown) {
            fault = thrown.facts();
        }
        refusals.clear();
        ::stat(file.c_str(), &after);
        EXPECT_EQ(before.st_ino == after.st_ino, c.sameFile);
        EXPECT_TRUE(before.st_mode == after.st_mode && before.st_uid == after.st_uid
                    && before.st_gid == after.st_gid);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), c.kind == linked ? 2 : 1);
        const fs::path recovery = path("data/Recovery");
        std::string kept;
        std::error_code none;
        for (const auto &copy : fs::directory_iterator(recovery, none))
            kept += copy.path();
        EXPECT_EQ(fault, c.fault + kept);
        EXPECT_EQ(kept.empty(), !c.fault.ends_with("kept in "));
        if (!c.fault.starts_with(damaged)) {
            EXPECT_EQ(contentOf(file), c.fault.empty() ? content : old);
        } else if (!kept.empty()) {
            EXPECT_EQ(contentOf(kept), old);
        }
        fs::remove_all(recovery);
    }
}

// As a user who owns the file but may not make new ones beside it; only the superuser can become
// one. In a folder of one's own a rename would get past the protection of the file.
TEST_F(WholeFile, AFolderThatForbidsNewFilesIsWrittenInPlaceAndAProtectedFileIsNot)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs the superuser to become another user";
    constexpr uid_t nobody = 65534;
    fs::create_directory(path("open"));
    fs::permissions(path(""), fs::perms(0755));
    fs::permissions(path("open"), fs::perms(0777));
    for (const auto &[name, isRefused] :
         {std::pair{"mine.vsk", false}, {"protected.vsk", true}, {"open/protected.vsk", true}}) {
        const std::string file = path(name), old = "a longer old content";
        write(file, old);
        fs::permissions(file, fs::perms(0644));
        ASSERT_EQ(::chown(file.c_str(), isRefused ? 0 : nobody, 0), 0);
        const auto writeAsNobody = [&] {
            if (::setuid(nobody) != 0)
                std::exit(1);
            try {
                writeWholeFile(file, "new", Durability::onDisk);
            } catch (const Fault &fault) {
                std::exit(fault.facts() == "Permission denied" ? 7 : 8);
            }
            std::exit(0);
        };
        EXPECT_EXIT(writeAsNobody(), testing::ExitedWithCode(isRefused ? 7 : 0), "") << name;
        EXPECT_EQ(contentOf(file), isRefused ? old : "new");
    }
}

} // namespace
} // namespace veskora
