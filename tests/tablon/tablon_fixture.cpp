#include "tablon_fixture.h"

#include <cstdlib>
#include <stdexcept>

namespace zel::tablon {

namespace fs = std::filesystem;

TablonFixture::TablonFixture() {
    std::string made = (test::runFolder() / "tablon-XXXXXX").string();
    if (::mkdtemp(made.data()) == nullptr)
        throw std::runtime_error("no folder for the test could be made");
    folder = made;
    fs::create_directories(folder / "zel" / "Reports");
    fs::create_directories(folder / "out");
    fs::copy(ZEL_REPORTS, folder / "zel" / "Reports");
    execute("insert into Incidents (IncidentID,IncidentName,IncidentNumber,IncidentLocation,IncidentState) values "
            "(1,'BEAR CREEK','OR-ABC-000123','SISTERS','OR')");
    execute("insert into AccountingCodes (AccountingID,IncidentID,AccountingCode) values (1,1,'P6ABC1')");
    execute("insert into AccountingCodes (AccountingID,IncidentID,AccountingCode) values (2,1,'P6XYZ2')");
    execute("insert into Resources (ResourceID,IncidentID,RequestNumber,Name,Collection,KindCode) values "
            "(5,1,'C-7','RIDGE CREW',1,'HC2')");
    execute("insert into Resources (ResourceID,IncidentID,RequestNumber,Collection) values (6,1,'O-12',0)");
    const std::string person = "insert into Persons (PersonID,ResourceID,LastName,FirstName,KindCode,FedCode) values ";
    execute(person + "(11,5,'SMITH','PAT','FFT2','AD')");
    execute(person + "(12,5,'O''BRIEN','LEE','FFT1','AD')");
    execute(person + "(13,6,'MILLER','KIM','PTRC','FED')");
}

TablonFixture::~TablonFixture() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

void TablonFixture::post(int id, int person, int day, const std::string& start, const std::string& stop, double hours,
                         const std::string& more) {
    execute("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime,Hours,AccountingID,KindCode,"
            "Class,Rate) values (" +
            std::to_string(id) + "," + std::to_string(person) + ",'7/" + std::to_string(day) + "/2005','1899-12-30 " +
            start + "','1899-12-30 " + stop + "'," + std::to_string(hours) + "," + more + ")");
}

std::string TablonFixture::databaseName() {
    return onSqlite() ? "/" : database().server() + "/" + database().catalog();
}

std::string TablonFixture::argument(const std::string& option, int report, const std::string& flag,
                                    const std::string& incident, const std::string& manageAll) {
    return incident + "," + std::to_string(report) + "," + option + "," + databaseName() + "," +
           (onSqlite() ? "," : std::string(test::serverUser) + ",") + "," + (onSqlite() ? "False" : "True") + "," +
           manageAll + "," + flag;
}

} // namespace zel::tablon
