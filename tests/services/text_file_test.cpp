#include "services/text_file.h"

#include "services/services_test.h"

namespace zel::services {

class TextFileTest : public ServicesTest {
protected:
    std::string read(const std::string& bytes) {
        folder.put("some.txt", bytes);
        return ReadTextFile(program.files, folder / "some.txt");
    }
};

TEST_F(TextFileTest, EachLineStandsBehindALineEnd) {
    EXPECT_EQ(read("OutNow"), "\r\nOutNow");
    EXPECT_EQ(read("OutNow\n"), "\r\nOutNow");
    EXPECT_EQ(read("one\r\ntwo\nthree\r\n"), "\r\none\r\ntwo\r\nthree");
    EXPECT_EQ(read("a\n\nb"), "\r\na\r\n\r\nb");
    EXPECT_EQ(read("a\rb"), "\r\na\rb");
}

TEST_F(TextFileTest, AnAbsentOrEmptyFileGivesAnEmptyText) {
    EXPECT_EQ(ReadTextFile(program.files, folder / "none.txt"), "");
    EXPECT_EQ(read(""), "");
}

} // namespace zel::services
