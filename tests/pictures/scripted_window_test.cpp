#include "pictures/scripted_window.h"

#include "core/start_up.h"
#include "runner/runner.h"
#include "support/test_database.h"

#include <QApplication>
#include <QImage>

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

namespace zel::pictures {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// One application serves all tests of the process; Qt wants it to live to the end.
void makeApplication() {
    static int count = 1;
    static char name[] = "zel-pictures";
    static char* words[] = {name, nullptr};
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static auto* application = new QApplication(count, words);
    QApplication::setQuitOnLastWindowClosed(false);
    (void)application;
}

class ScriptedWindowTest : public testing::Test {
protected:
    ScriptedWindowTest() {
        makeApplication();
        std::string pattern = (fs::temp_directory_path() / "zel-pictures-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
        setenv("XDG_RUNTIME_DIR", folder_.c_str(), 1);
        fs::create_directories(folder_ / "zel");
        fs::create_directories(folder_ / "database");
        fs::copy_file(demo_.file(), folder_ / "database" / "Korvan.mdb");
    }
    ~ScriptedWindowTest() override {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    /// What the script answers, line by line in one text.
    std::string play(const std::string& script, const ScriptedWindow::Look& look = {}) {
        runner::Options options;
        options.home = (folder_ / "zel").string();
        options.now = "2005-07-26T08:00:00";
        options.out = (folder_ / "out").string();
        ScriptedWindow program(options, look);
        std::istringstream in("start False\n" + script + "\nquit\n");
        std::ostringstream answers;
        runner::Runner runner(program, answers, false);
        status_ = runner.run(in);
        return answers.str();
    }
    [[nodiscard]] QImage picture(const std::string& name) const {
        return QImage(QString::fromStdString((folder_ / "out" / (name + ".png")).string()));
    }
    int status_ = -1;

private:
    test::TestDatabase demo_{ado::EngineKind::Sqlite, test::Content::Demo};
    fs::path folder_;
};

TEST_F(ScriptedWindowTest, A_picture_has_the_size_asked_for_and_its_tail) {
    const auto answers = play("picture start", {QSize(1200, 760), "-small"});
    EXPECT_EQ(status_, 0) << answers;
    EXPECT_THAT(answers, HasSubstr("start-small.png"));
    EXPECT_EQ(picture("start-small").size(), QSize(1200, 760));
}

TEST_F(ScriptedWindowTest, What_a_script_types_is_seen_in_the_window) {
    play("tab frmPersonnel.tabAE 0\npicture before\ntype mskPersonnel(0) nils\npicture after");
    EXPECT_EQ(status_, 0);
    EXPECT_FALSE(picture("before").isNull());
    EXPECT_NE(picture("before"), picture("after"));
}

TEST_F(ScriptedWindowTest, The_next_box_is_kept_and_the_script_answers_it) {
    const auto answers = play("picture plain\npicture-box question\nanswer No\ntoolbar Exit\npicture later");
    EXPECT_EQ(status_, 0) << answers;
    EXPECT_THAT(answers, HasSubstr("\"answer\":\"No\""));
    EXPECT_FALSE(picture("question").isNull());
    EXPECT_NE(picture("question"), picture("plain"));
    EXPECT_EQ(picture("later"), picture("plain")); // the box is gone
}

TEST_F(ScriptedWindowTest, A_box_that_did_not_come_is_told_at_the_next_picture) {
    const auto answers = play("picture-box question\ntab frmPersonnel.tabAE 1\npicture page");
    EXPECT_EQ(status_, 1);
    EXPECT_THAT(answers, HasSubstr("no box came for the picture question"));
}

TEST_F(ScriptedWindowTest, A_list_pulled_down_is_in_the_picture) {
    play("tab frmPersonnel.tabAE 1\npicture closed\nkey dbcPersonnel {F4}\npicture open");
    EXPECT_EQ(status_, 0);
    EXPECT_FALSE(picture("closed").isNull());
    EXPECT_NE(picture("closed"), picture("open"));
}

} // namespace
} // namespace zel::pictures
