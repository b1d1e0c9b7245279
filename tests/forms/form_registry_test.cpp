#include "forms/form_registry.h"

#include "forms/buttons.h"
#include "forms/screen_test.h"

namespace zel::forms {

namespace {

struct frmTest : Form {
    frmTest(Desk& desk, std::string name, std::vector<std::string>& events) : Form(desk.forms, name), events_(events) {
        LoadEvent = [this] { events_.push_back(Name() + " load"); };
        UnloadEvent = [this](bool& cancel) {
            events_.push_back(Name() + " unload");
            cancel = refuse;
        };
    }
    ~frmTest() override { events_.push_back(Name() + " gone"); }
    void tbSave() override { events_.push_back(Name() + " saved"); }

    CommandButton close{*this, "cmdClose", "Close"};
    bool refuse = false;

private:
    std::vector<std::string>& events_;
};

class FormRegistryTest : public ScreenTest {
protected:
    FormRegistryTest() {
        for (const char* name : {"frmMain", "frmPost", "frmCrews"}) {
            desk.forms.add(name, [this, name] { return std::make_unique<frmTest>(desk, name, events); });
        }
        desk.forms.setShell("frmMain");
    }
    /// Screens end before the notes they write into.
    ~FormRegistryTest() override {
        for (Form* form : desk.forms.forms()) {
            const FormRegistry::Action action(desk.forms);
            form->Unload();
        }
    }
};

using Events = std::vector<std::string>;

} // namespace

TEST_F(FormRegistryTest, ScreenIsMadeAndLoadedOnceByNameInAnyLetters) {
    Form* form = desk.forms.load("frmPost");
    EXPECT_EQ(desk.forms.load("FRMPOST"), form);
    EXPECT_EQ(takeEvents(), (Events{"frmPost load"}));
    EXPECT_FALSE(form->Visible());
    EXPECT_EQ(desk.forms.loaded("frmCrews"), nullptr);
}

TEST_F(FormRegistryTest, UnknownScreenDoesNotExist) {
    EXPECT_FALSE(desk.forms.has("frmSettings"));
    EXPECT_EQ(desk.forms.load("frmSettings"), nullptr);
}

TEST_F(FormRegistryTest, ActiveFormIsTheLastUsedScreenAndNeverTheShell) {
    desk.forms.load("frmMain")->Show();
    EXPECT_EQ(desk.forms.ActiveForm(), nullptr);
    Form* post = desk.forms.load("frmPost");
    Form* crews = desk.forms.load("frmCrews");
    post->Show();
    crews->Show();
    EXPECT_EQ(desk.forms.ActiveForm(), crews);
    desk.forms.shell()->SetFocus();
    EXPECT_EQ(desk.forms.ActiveForm(), crews);
    EXPECT_TRUE(done(desk.user.click(*post->find("cmdClose"))));
    EXPECT_EQ(desk.forms.ActiveForm(), post);
    post->Hide();
    EXPECT_EQ(desk.forms.ActiveForm(), crews);
}

TEST_F(FormRegistryTest, FormUnloadedByItsOwnButtonLivesUntilTheActionEnds) {
    auto* form = desk.forms.get<frmTest>("frmPost");
    form->Show();
    form->close.Click = [&] {
        form->Unload();
        events.push_back("still here");
    };
    EXPECT_TRUE(done(desk.user.click(form->close)));
    EXPECT_EQ(takeEvents(), (Events{"frmPost load", "frmPost unload", "still here", "frmPost gone"}));
    EXPECT_EQ(desk.forms.loaded("frmPost"), nullptr);
}

TEST_F(FormRegistryTest, UnloadThatIsRefusedKeepsTheForm) {
    auto* form = desk.forms.get<frmTest>("frmPost");
    form->Show();
    form->refuse = true;
    EXPECT_TRUE(done(desk.user.close(*form)));
    EXPECT_TRUE(form->Visible());
    EXPECT_TRUE(form->loaded());
    form->refuse = false;
}

TEST_F(FormRegistryTest, CommandsOfTheShellDoNothingWhereAScreenLacksThem) {
    Form* form = desk.forms.load("frmPost");
    takeEvents();
    form->tbSave();
    form->tbDelete();
    form->fRebindIncident();
    EXPECT_EQ(takeEvents(), (Events{"frmPost saved"}));
}

TEST_F(FormRegistryTest, LoadedFormsAreListedInTheOrderOfLoading) {
    desk.forms.load("frmCrews");
    desk.forms.load("frmMain");
    std::vector<std::string> names;
    for (Form* form : desk.forms.forms())
        names.push_back(form->Name());
    EXPECT_EQ(names, (Events{"frmCrews", "frmMain"}));
}

TEST_F(FormRegistryTest, FrontEndHearsOfFormsActionsAndHourglass) {
    Events heard;
    desk.forms.formLoaded = [&](Form& form) { heard.push_back("+" + form.Name()); };
    desk.forms.formUnloaded = [&](Form& form) { heard.push_back("-" + form.Name()); };
    desk.forms.hourglassChanged = [&] { heard.push_back(desk.forms.Hourglass() ? "busy" : "free"); };
    desk.forms.settled = [&] { heard.emplace_back("settled"); };
    Form* form = desk.forms.load("frmPost");
    form->Show();
    desk.forms.setHourglass(true);
    desk.forms.setHourglass(true);
    desk.forms.setHourglass(false);
    desk.user.close(*form);
    EXPECT_EQ(heard, (Events{"+frmPost", "busy", "free", "-frmPost", "settled"}));
    desk.forms.settled = nullptr;
    desk.forms.formUnloaded = nullptr;
}

TEST_F(FormRegistryTest, ObserverHearsOfChangesUntilItsSubscriptionEnds) {
    Form form(desk.forms, "frmX");
    Label label{form, "lblStatus"};
    int captions = 0;
    auto subscription = label.observe([&](Property property) { captions += property == Property::Caption ? 1 : 0; });
    label.setCaption("one");
    label.setCaption("one");
    subscription.end();
    label.setCaption("two");
    EXPECT_EQ(captions, 1);
}

TEST_F(FormRegistryTest, ObserverMayEndItsSubscriptionWhileItIsTold) {
    Observers observers;
    int calls = 0;
    Subscription subscription;
    subscription = observers.add([&](Property) {
        ++calls;
        subscription.end();
    });
    observers.notify(Property::Text);
    observers.notify(Property::Text);
    EXPECT_EQ(calls, 1);
}

} // namespace zel::forms
