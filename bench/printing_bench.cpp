#include "ado/recordset.h"
#include "forms/scripted_dialogs.h"
#include "pairs.h"
#include "printing/pdf.h"
#include "support/test_database.h"
#include "tablon/tablon.h"

#include <QBuffer>
#include <QFont>
#include <QGuiApplication>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>

namespace zel::bench {

namespace {

namespace fs = std::filesystem;

constexpr int people = 100, postings = 40;
constexpr int resolution = 600;

/// An incident with as many persons as forms, each with some weeks of postings in two columns.
class Forms {
public:
    Forms() : database_(ado::EngineKind::Sqlite), home_(database_.file().parent_path() / "printing_bench") {
        fs::create_directories(home_ / "Reports");
        fs::copy(ZEL_REPORTS, home_ / "Reports", fs::copy_options::recursive);
        ado::Connection& connection = database_.connection();
        connection.engine().begin();
        for (const char* row : {"insert into Incidents (IncidentID,IncidentName,IncidentNumber) values (1,'BEAR "
                                "CREEK','OR-ABC-000123')",
                                "insert into AccountingCodes (AccountingID,IncidentID,AccountingCode) values "
                                "(1,1,'P6ABC1')"})
            connection.Execute(std::string_view(row));
        for (int person = 1; person <= people; ++person)
            addPerson(connection, person);
        connection.engine().commit();
    }
    ~Forms() {
        std::error_code ignored;
        fs::remove_all(home_, ignored);
    }
    Forms(const Forms&) = delete;
    Forms& operator=(const Forms&) = delete;

    /// What the reporting program does, from its argument to the bytes of the file.
    std::size_t printed() {
        std::size_t size = 0;
        run([&size](const auto&, const auto& title, const auto& layout, const auto& pages) {
            size = printing::pdfOf(title, layout, pages).size();
        });
        return size;
    }
    std::vector<printing::Page> pages() {
        std::vector<printing::Page> made;
        run([&made](const auto&, const auto&, const auto&, const auto& pages) { made = pages; });
        return made;
    }

private:
    static void addPerson(ado::Connection& connection, int person) {
        const auto execute = [&connection](const std::string& text) { connection.Execute(std::string_view(text)); };
        execute(fmt::format("insert into Resources (ResourceID,IncidentID,RequestNumber) values ({},1,'O-{}')", person,
                            person));
        execute(fmt::format("insert into Persons (PersonID,ResourceID,LastName,FirstName,KindCode,FedCode,MailAddr1,"
                            "City,State,ZipCode,SSN) values ({0},{0},'MILLER-{0}','KIM','FFT2','AD','{0} HILL ROAD',"
                            "'SISTERS','OR','97759','123456789')",
                            person));
        for (int i = 0; i < postings; ++i)
            execute(fmt::format("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime,Hours,"
                                "AccountingID,KindCode,Class,Rate) values ({},{},'7/{}/2005','1899-12-30 {:02}:00',"
                                "'1899-12-30 {:02}:45',5.75,1,'FFT2','{}',18.20)",
                                person * 1000 + i, person, i / 2 + 1, i % 2 * 8 + 6, i % 2 * 8 + 11,
                                i < postings / 2 ? "AD-B" : "AD-C"));
    }
    template <typename Print>
    void run(Print print) {
        tablon::Tablon program({home_.string(), database_.file().string(), print}, dialogs_);
        if (program.run("1,6,0,/,,,False,False,False") != tablon::Outcome::Printed)
            throw std::runtime_error("the forms were not printed: " + dialogs_.shown().back().text);
    }

    test::TestDatabase database_;
    fs::path home_;
    forms::ScriptedDialogs dialogs_;
};

/// The same boxes, lines and texts in their places, with fonts, pens and texts ready before the clock starts.
class BarePainter {
public:
    explicit BarePainter(const std::vector<printing::Page>& pages) {
        for (const printing::Page& page : pages) {
            auto& things = pages_.emplace_back();
            for (const printing::Mark& mark : page)
                things.push_back(thingOf(mark));
        }
    }
    std::size_t printed() const {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setResolution(resolution);
        writer.setPageSize(QPageSize(QSizeF(8.5, 11), QPageSize::Inch));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        QPainter painter(&writer);
        for (std::size_t page = 0; page < pages_.size(); ++page) {
            if (page > 0)
                writer.newPage();
            for (const Thing& thing : pages_[page])
                draw(painter, thing);
        }
        painter.end();
        return static_cast<std::size_t>(bytes.size());
    }

private:
    struct Thing {
        printing::Item::Kind kind;
        QRectF place;
        QPen pen;
        QFont font;
        int flags;
        QString text;
    };
    static Thing thingOf(const printing::Mark& mark) {
        const printing::Item& item = mark.item;
        Thing thing;
        thing.kind = item.kind;
        thing.place =
            QRectF(mark.x * resolution, mark.y * resolution, item.width * resolution, item.height * resolution);
        thing.pen = QPen(Qt::black, item.thickness * resolution);
        thing.font = QFont("DejaVu Sans");
        thing.font.setPointSizeF(item.size);
        thing.font.setBold(item.bold);
        thing.flags = (item.align == printing::Align::Left    ? Qt::AlignLeft
                       : item.align == printing::Align::Right ? Qt::AlignRight
                                                              : Qt::AlignHCenter) |
                      (item.fit == printing::Fit::Wrap ? Qt::AlignTop | Qt::TextWordWrap
                                                       : Qt::AlignVCenter | Qt::TextSingleLine) |
                      Qt::TextDontClip;
        thing.text = QString::fromStdString(item.text);
        return thing;
    }
    static void draw(QPainter& painter, const Thing& thing) {
        if (thing.kind == printing::Item::Kind::Text) {
            if (thing.text.isEmpty())
                return;
            painter.setFont(thing.font);
            painter.drawText(thing.place, thing.flags, thing.text);
            return;
        }
        painter.setPen(thing.pen);
        if (thing.kind == printing::Item::Kind::Box)
            painter.drawRect(thing.place);
        else
            painter.drawLine(thing.place.topLeft(), thing.place.bottomRight());
    }

    std::vector<std::vector<Thing>> pages_;
};

void printForms(benchmark::State& state) {
    Forms forms;
    const std::vector<printing::Page> pages = forms.pages();
    if (pages.size() != people)
        throw std::runtime_error(fmt::format("{} pages instead of {}", pages.size(), people));
    const BarePainter bare(pages);
    runPairs(
        state, [&forms] { benchmark::DoNotOptimize(forms.printed()); },
        [&bare] { benchmark::DoNotOptimize(bare.printed()); });
    state.counters["ours_pages_per_s"] = people * 1000 / state.counters["ours_ms"];
    state.counters["theirs_pages_per_s"] = people * 1000 / state.counters["theirs_ms"];
}

const bool added = [] {
    addPairs("print_100_forms_from_data_to_pdf/at_most_1.0", printForms);
    return true;
}();

} // namespace

} // namespace zel::bench
