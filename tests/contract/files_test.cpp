// The program's text files.
#include <gtest/gtest.h>

#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

class FilesContract : public ::testing::TestWithParam<Folder> {
 protected:
  FilePath Path(TextView name) const { return {GetParam(), name}; }

  std::unique_ptr<World> world_ = MakeWorld({});
  Files& files_ = world_->Seam().files;
  const FilePath file_ = Path(u"contract file.txt");
};

TEST_P(FilesContract, AFileIsThereOnceItIsWritten) {
  EXPECT_FALSE(files_.Exists(file_));
  EXPECT_EQ(files_.Read(file_), std::nullopt);
  EXPECT_TRUE(files_.Write(file_, u"stopped\r\n"));
  EXPECT_TRUE(files_.Exists(file_));
  EXPECT_EQ(files_.Read(file_), u"stopped\r\n");
  EXPECT_EQ(world_->FileBytes(file_), "stopped\r\n");
}

TEST_P(FilesContract, WritingReplacesTheWholeContent) {
  EXPECT_TRUE(files_.Write(file_, u"a longer text that was there before"));
  EXPECT_TRUE(files_.Write(file_, u"short"));
  EXPECT_EQ(files_.Read(file_), u"short");
  EXPECT_TRUE(files_.Write(file_, u""));
  EXPECT_EQ(files_.Read(file_), u"");
}

TEST_P(FilesContract, ALogHoldsWhatWasWrittenLast) {
  for (const TextView text :
       {TextView(u"^Grid\r\n"), TextView(u"Grid\r\n"), TextView(u"Grid\r\n"), TextView(u"Gr\u00FC\r\n")}) {
    EXPECT_TRUE(files_.WriteLog(file_, text));
    EXPECT_EQ(files_.Read(file_), text);
  }
  EXPECT_EQ(world_->FileBytes(file_), "Gr\xFC\r\n");
}

TEST_P(FilesContract, AppendingAddsAtTheEnd) {
  EXPECT_TRUE(files_.Append(file_, u"one\r\n"));
  EXPECT_TRUE(files_.Append(file_, u"two\r\n"));
  EXPECT_EQ(files_.Read(file_), u"one\r\ntwo\r\n");
}

TEST_P(FilesContract, TextIsEightBitOnDisk) {
  EXPECT_TRUE(files_.Write(file_, u"Gr\u00FC\u00DFe \u4E2D \u20AC"));
  EXPECT_EQ(world_->FileBytes(file_),
            "Gr\xFC\xDF"
            "e ? \x80");
  EXPECT_EQ(files_.Read(file_), u"Gr\u00FC\u00DFe ? \u20AC");
}

TEST_P(FilesContract, AFileThatCannotBeWrittenStaysAsItWas) {
  EXPECT_TRUE(files_.Write(file_, u"old"));
  world_->MakeReadOnly(file_);
  EXPECT_FALSE(files_.Write(file_, u"new"));
  EXPECT_FALSE(files_.WriteLog(file_, u"new"));
  EXPECT_FALSE(files_.Append(file_, u"new"));
  EXPECT_EQ(files_.Read(file_), u"old");
}

TEST(FilesOfBothFolders, AreApart) {
  const auto world = MakeWorld({});
  Files& files = world->Seam().files;
  EXPECT_TRUE(files.Write({Folder::kProgram, u"contract file.txt"}, u"here"));
  EXPECT_FALSE(files.Exists({Folder::kCurrent, u"contract file.txt"}));
}

INSTANTIATE_TEST_SUITE_P(Folders, FilesContract, ::testing::Values(Folder::kProgram, Folder::kCurrent),
                         [](const auto& folder) {
                           return folder.param == Folder::kProgram ? "Program" : "Current";
                         });

}  // namespace
}  // namespace pointalk::contract
