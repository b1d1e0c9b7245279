#include "ado/convert.h"
#include "suite/frmSecurity.h"
#include "suite/suite_program.h"

namespace zel::suite {

using testing::HasSubstr;

class DatabaseLocatorTest : public SuiteTest {
protected:
    /// Commands that an answer "form:..." runs on the window: the values of its fields, then a button.
    void typeInto(forms::Form& form, const std::string& commands) {
        auto& window = dynamic_cast<frmServerSelect&>(form);
        if (commands == "choose") {
            window.cboServer.setText(typedServer);
            window.cboCatalog.setText(typedCatalog);
            window.txtUser.setText(onSqlite() ? "" : test::serverUser);
            window.txtPassword.setText("secret");
            window.cmdOK.press();
        }
        if (window.Visible())
            window.cmdCancel.press();
    }
    std::string open(std::string& server, std::string& catalog) {
        dialogs.runCommands = [this](forms::Form& form, const std::string& commands) { typeInto(form, commands); };
        const forms::FormRegistry::Action action(forms);
        return suite.locator().OpenServer(session, "ZEL", session.app.Path + "/zel.ini", server, catalog);
    }
    bool isOpen() {
        const auto connection = suite.locator().GetConnection();
        return connection && connection->State() == ado::stateOpen;
    }

    std::string typedServer = server(), typedCatalog = catalog();
};
ZEL_ON_BOTH_ENGINES(DatabaseLocatorTest);

TEST_P(DatabaseLocatorTest, WithoutNamesTheClerkChoosesAndTheChoiceComesBack) {
    std::string server, catalog;
    dialogs.answer("form:choose");
    EXPECT_NE(open(server, catalog), "");
    EXPECT_EQ(server, typedServer);
    EXPECT_EQ(catalog, typedCatalog);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(suite.locator().Password(), onSqlite() ? "" : "secret"); // a file asks for none
    const auto shown = box();
    EXPECT_EQ(shown.kind, "form");
    EXPECT_EQ(shown.title, "Server and Database Selection");
}

TEST_P(DatabaseLocatorTest, CancelGivesNoConnection) {
    std::string server, catalog;
    dialogs.answer("Cancel");
    EXPECT_EQ(open(server, catalog), "");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(server, "");
}

TEST_P(DatabaseLocatorTest, AChoiceThatDoesNotOpenIsToldAndTheWindowStays) {
    std::string server, catalog;
    typedCatalog = onSqlite() ? folder / "missing.mdb" : "no_such_catalog";
    dialogs.answer("form:choose");
    EXPECT_EQ(open(server, catalog), "");
    const auto shown = dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].title, "ZEL: Cannot Open Database");
    EXPECT_EQ(shown[1].icon, "critical");
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(suite.locator().Password(), "");
}

TEST_P(DatabaseLocatorTest, AnEmptyChoiceIsAskedForAgain) {
    std::string server, catalog;
    typedCatalog = " ";
    dialogs.answer("form:choose");
    EXPECT_EQ(open(server, catalog), "");
    EXPECT_EQ(dialogs.take().back().text, "Please select or type a server and a database.");
}

TEST_P(DatabaseLocatorTest, ASavedDatabaseThatIsGoneIsToldAndAnotherCanBeChosen) {
    std::string server = this->server(), catalog = onSqlite() ? folder / "gone.mdb" : "gone";
    dialogs.answer("OK");
    dialogs.answer("form:choose");
    EXPECT_NE(open(server, catalog), "");
    EXPECT_EQ(catalog, typedCatalog);
    EXPECT_TRUE(isOpen());
}

TEST_P(DatabaseLocatorTest, CloseDatabaseClosesTheConnectionAndKeepsTheLogin) {
    std::string server, catalog;
    dialogs.answer("form:choose");
    open(server, catalog);
    suite.locator().CloseDatabase();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(suite.locator().Password(), onSqlite() ? "" : "secret");
}

TEST_P(DatabaseLocatorTest, AFileThatIsOpenedAfterAServerHasNoLogin) {
    dialogs.runCommands = [](forms::Form& form, const std::string&) {
        auto& window = dynamic_cast<frmSecurity&>(form);
        window.txtUser.setText("clerk");
        window.txtPassword.setText("secret");
        window.cmdOK.press();
    };
    dialogs.answer("form:type");
    const forms::FormRegistry::Action action(forms);
    suite.locator().ShowServerSecurity(session, "HOST01");
    ASSERT_EQ(suite.locator().Password(), "secret");
    suite.locator().OpenDesktop(session, onSqlite() ? database().file().string() : "/nowhere.mdb", "", "", "", "ZEL");
    EXPECT_EQ(suite.locator().UserName(), "");
    EXPECT_EQ(suite.locator().Password(), "");
}

TEST_P(DatabaseLocatorTest, TheSecurityDialogChangesTheLoginOfAServerInMemoryOnly) {
    dialogs.runCommands = [](forms::Form& form, const std::string&) {
        auto& window = dynamic_cast<frmSecurity&>(form);
        window.txtUser.setText("clerk");
        window.txtPassword.setText("changed");
        window.cmdOK.press();
    };
    dialogs.answer("form:type");
    const forms::FormRegistry::Action action(forms);
    suite.locator().ShowServerSecurity(session, "HOST01");
    EXPECT_EQ(suite.locator().UserName(), "clerk");
    EXPECT_EQ(suite.locator().Password(), "changed");
    EXPECT_EQ(forms.loaded("frmSecurity"), nullptr);
    EXPECT_THAT(folder.bytes("zel/zel.ini"), testing::Not(HasSubstr("changed")));
}

TEST_P(DatabaseLocatorTest, TheListOffersWhatIsThere) {
    std::string catalogs;
    dialogs.runCommands = [this, &catalogs](forms::Form& form, const std::string&) {
        auto& window = dynamic_cast<frmServerSelect&>(form);
        window.cboServer.setText(server());
        window.txtUser.setText(onSqlite() ? "" : test::serverUser);
        window.cboCatalog.setOpen(true);
        for (int index = 0; index < window.cboCatalog.ListCount(); ++index)
            catalogs += window.cboCatalog.List(index) + "\n";
        window.cmdCancel.press();
    };
    std::filesystem::create_directories(folder / "database");
    folder.put("database/Korvan.mdb", "");
    folder.put("database/notes.txt", "");
    std::string noServer, noCatalog;
    dialogs.answer("form:look");
    const forms::FormRegistry::Action action(forms);
    EXPECT_EQ(suite.locator().OpenServer(session, "ZEL", "", noServer, noCatalog), "");
    if (onSqlite())
        EXPECT_EQ(catalogs, folder / "database/Korvan.mdb\n");
    else
        EXPECT_THAT(catalogs, HasSubstr(catalog() + "\n"));
}

class DatabaseFileTest : public SuiteTest {
protected:
    std::string refusal(const std::string& bytes) {
        folder.put("some.mdb", bytes);
        suite.locator().OpenDesktop(session, folder / "some.mdb", "", "", "", "ZEL");
        EXPECT_NE(suite.locator().GetConnection(), nullptr);
        EXPECT_EQ(suite.locator().GetConnection()->State(), ado::stateClosed);
        EXPECT_EQ(folder.bytes("some.mdb"), bytes);
        const auto shown = box();
        EXPECT_EQ(shown.title, "ZEL: Cannot Open Database");
        return shown.text;
    }
};
INSTANTIATE_TEST_SUITE_P(Files, DatabaseFileTest, ::testing::Values(ado::EngineKind::Sqlite), test::engineName);

TEST_P(DatabaseFileTest, ADatabaseFileOpensWhateverTheLettersOfItsName) {
    std::filesystem::copy_file(database().file(), folder / "Korvan.mdb");
    suite.locator().OpenDesktop(session, folder / "KORVAN.MDB", "", "", "", "ZEL");
    EXPECT_EQ(suite.locator().GetConnection()->State(), ado::stateOpen);
    EXPECT_TRUE(dialogs.take().empty());
}

TEST_P(DatabaseFileTest, AJetFileIsToldApart) {
    using namespace std::string_literals;
    EXPECT_THAT(
        refusal("\0\1\0\0Standard Jet DB\0"s + std::string(200, 'x')),
        HasSubstr("it is a Jet database, which this program cannot read. Make a database with 'korvan-db create'"));
}

TEST_P(DatabaseFileTest, AnyOtherFileIsRefused) {
    EXPECT_THAT(refusal("just some text"), HasSubstr("it is not a database."));
}

TEST_P(DatabaseFileTest, AServerThatIsDownIsToldInWords) {
    std::string server = folder / "no-socket", catalog = "Korvan";
    dialogs.answer("OK");
    dialogs.answer("Cancel");
    EXPECT_EQ(suite.locator().OpenServer(session, "ZEL", "", server, catalog), "");
    const auto shown = dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_FALSE(shown[0].text.empty());
    EXPECT_EQ(shown[1].title, "Server and Database Selection");
}

TEST_P(DatabaseFileTest, ACopyOfADatabaseIsAWholeDatabase) {
    suite.copyDatabase(database().file(), folder / "copy.mdb");
    suite.locator().OpenDesktop(session, folder / "copy.mdb", "", "", "", "ZEL");
    EXPECT_EQ(suite.locator().GetConnection()->State(), ado::stateOpen);
}

} // namespace zel::suite
