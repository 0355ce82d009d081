#include "velmora/adapters/com/host_connection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

#include "adapters/com/fake_host.h"

namespace velmora::com {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr HRESULT refused = static_cast<HRESULT>(0x80040E14L);
constexpr HRESULT failed = static_cast<HRESULT>(0x80004005L);

class HostConnectionTest : public testing::Test {
  protected:
    HostConnectionTest() { needCom(); }
    ~HostConnectionTest() override {
        if (registered_ != 0) {
            CoRevokeClassObject(registered_);
        }
    }

    template <typename Work>
    sql::DbError errorOfWork(const Work& work) {
        try {
            work();
        } catch (const sql::DbError& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return {0, ""};
    }

    FakeConnection host_;
    HostConnection connection_{host_.late()};
    DWORD registered_ = 0;
};

TEST_F(HostConnectionTest, AStatementReachesTheHostToTheLetter) {
    host_.answerRows("Select", {"DPI_Id", "DPI_Ref"}, {{1, "A"}, {2, sql::Value()}});
    sql::Recordset rows = connection_.execute("Select * from DPI where DPI_Ref = 'Ñ; x'");
    EXPECT_EQ(rows.recordCount(), 2U);
    EXPECT_EQ(rows["dpi_ref"], sql::Value("A"));
    EXPECT_EQ(host_.statements.back(), "Select * from DPI where DPI_Ref = 'Ñ; x'");
    EXPECT_THAT(host_.seen->calls, testing::Contains("call Execute(8,10,3)"));
}

TEST_F(HostConnectionTest, AStatementWithoutRowsGivesAClosedSet) {
    EXPECT_FALSE(connection_.execute("DELETE from MODPI where MODPI_DPI = 7").isOpen());
    host_.answer("UPDATE", [](FakeCall& call) { return call.answer(Variant::object({})); });
    EXPECT_FALSE(connection_.execute("UPDATE DPI SET DPI_Tipo = 1").isOpen());
}

TEST_F(HostConnectionTest, DatesAreReadDayFirstFromTheFirstStatementOn) {
    EXPECT_TRUE(host_.statements.empty());
    connection_.execute("Select 1");
    connection_.execute("Select 2");
    EXPECT_THAT(host_.statements, ElementsAre("SET DATEFORMAT dmy", "Select 1", "Select 2"));
}

TEST_F(HostConnectionTest, AnEngineThatRefusesTheOrderOfDatesGoesOn) {
    host_.refuse("SET DATEFORMAT", refused, "no");
    EXPECT_NO_THROW(connection_.execute("Select 1"));
}

TEST_F(HostConnectionTest, AnotherObjectOfTheHostIsFollowed) {
    FakeConnection other;
    connection_.execute("Select 1");
    connection_.follow(host_.late());
    connection_.follow(other.late());
    connection_.execute("Select 2");
    EXPECT_THAT(host_.statements, ElementsAre("SET DATEFORMAT dmy", "Select 1"));
    EXPECT_THAT(other.statements, ElementsAre("SET DATEFORMAT dmy", "Select 2"));
}

TEST_F(HostConnectionTest, ASecondStatementIsRefused) {
    const sql::DbError error = errorOfWork([&] { connection_.execute("Select 1; delete from DPI"); });
    EXPECT_EQ(error.number(), sql::provider::syntax);
    EXPECT_TRUE(host_.statements.empty());
}

TEST_F(HostConnectionTest, ErrorsOfTheHostKeepNumberDescriptionAndSource) {
    host_.refuse("Select top 1 * from ENG", static_cast<HRESULT>(0x80040E37L), "El objeto 'ENG' no es válido");
    const sql::DbError error = errorOfWork([&] { connection_.execute("Select top 1 * from ENG"); });
    EXPECT_EQ(error.number(), sql::provider::missingTable);
    EXPECT_EQ(error.description(), "El objeto 'ENG' no es válido");
    EXPECT_EQ(error.source(), "Host.Provider");
    EXPECT_EQ(error.details().statement, "Select top 1 * from ENG");
}

TEST_F(HostConnectionTest, TheProvidersOwnNumberComesFromItsListOfErrors) {
    const auto first = FakeObject::make();
    first->onGet("NativeError", Variant::longNumber(209));
    first->onGet("SQLState", Variant::text("42000"));
    const auto errors = FakeObject::make();
    errors->onGet("Count", Variant::longNumber(1));
    errors->on("Item", DISPATCH_PROPERTYGET, [&](FakeCall& call) { return call.answer(first->variant()); });
    host_.object->onGet("Errors", errors->variant());
    host_.refuse("Select", refused, "El nombre de columna 'DPI_Fecha' es ambiguo");
    const sql::DbError error = errorOfWork([&] { connection_.execute("Select x"); });
    EXPECT_EQ(error.details().nativeCode, 209);
    EXPECT_EQ(error.details().sqlState, "42000");
}

TEST_F(HostConnectionTest, AnErrorWhileRowsAreReadIsToldToo) {
    host_.answer("Select", [this](FakeCall& call) {
        const auto set = fakeSet(host_.seen, {"a"}, {{1}, {2}});
        set->on("MoveNext", DISPATCH_METHOD,
                [](FakeCall& move) { return move.raise(failed, "Conexión perdida", "Host.Provider"); });
        return call.answer(set->variant());
    });
    EXPECT_EQ(errorOfWork([&] { connection_.execute("Select a"); }).description(), "Conexión perdida");
}

TEST_F(HostConnectionTest, ASetKeepsItsRowsAndClonesMoveAlone) {
    host_.answerRows("Select", {"a"}, {{1}, {2}, {3}});
    sql::Recordset rows = connection_.execute("Select a");
    host_.answerRows("Select", {"a"}, {{9}});
    sql::Recordset clone = rows.clone();
    clone.moveLast();
    EXPECT_EQ(rows["a"], sql::Value(1));
    EXPECT_EQ(clone["a"], sql::Value(3));
    ASSERT_NE(rows.peek(1), nullptr);
    EXPECT_EQ((*rows.peek(1))[0], sql::Value(2));
    rows.requery();
    EXPECT_EQ(rows["a"], sql::Value(9));
    EXPECT_EQ(clone["a"], sql::Value(3));
}

TEST_F(HostConnectionTest, TheHostsSetIsReleasedWhenItsRowsAreRead) {
    const auto set = fakeSet(host_.seen, {"a"}, {{1}});
    host_.answer("Select", [&](FakeCall& call) { return call.answer(set->variant()); });
    const sql::Recordset rows = connection_.execute("Select a");
    EXPECT_EQ(set->references(), 1U);
    EXPECT_TRUE(rows.isOpen());
}

TEST_F(HostConnectionTest, ATransactionBeginsWithTheApplicationLock) {
    host_.grantLock();
    connection_.beginTrans();
    connection_.execute("INSERT INTO DPI (a) VALUES (1)");
    connection_.commitTrans();
    EXPECT_THAT(host_.statements, ElementsAre("SET DATEFORMAT dmy", "BeginTrans", HasSubstr("sp_getapplock"),
                                              StartsWith("INSERT"), "CommitTrans"));
}

TEST_F(HostConnectionTest, WhoWaitsTooLongForTheLockIsToldSo) {
    host_.grantLock(-1);
    EXPECT_EQ(errorOfWork([&] { connection_.beginTrans(); }).number(), sql::provider::timeout);
    EXPECT_EQ(host_.statements.back(), "RollbackTrans");
    EXPECT_EQ(errorOfWork([&] { connection_.commitTrans(); }).number(), sql::provider::noTransaction);
}

TEST_F(HostConnectionTest, AnEngineWithoutTheLockGetsAPlainTransaction) {
    connection_.beginTrans();
    connection_.rollbackTrans();
    connection_.beginTrans();
    connection_.commitTrans();
    EXPECT_THAT(host_.statements,
                ElementsAre("SET DATEFORMAT dmy", "BeginTrans", HasSubstr("sp_getapplock"), "RollbackTrans",
                            StartsWith("SELECT 1"), "BeginTrans", "RollbackTrans", "BeginTrans", "CommitTrans"));
}

TEST_F(HostConnectionTest, TheLocksAnswerIsFoundBehindResultsWithoutRows) {
    host_.answer("DECLARE @answer", [this](FakeCall& call) {
        const auto closed = fakeClosedSet(host_.seen);
        const auto rows = fakeSet(host_.seen, {"answer"}, {{0}});
        closed->on("NextRecordset", DISPATCH_METHOD, [rows](FakeCall& next) { return next.answer(rows->variant()); });
        return call.answer(closed->variant());
    });
    EXPECT_NO_THROW(connection_.beginTrans());
}

TEST_F(HostConnectionTest, TransactionsDoNotNestAndNoneEndsTwice) {
    EXPECT_EQ(errorOfWork([&] { connection_.commitTrans(); }).number(), sql::provider::noTransaction);
    EXPECT_EQ(errorOfWork([&] { connection_.rollbackTrans(); }).number(), sql::provider::noTransaction);
    connection_.beginTrans();
    EXPECT_EQ(errorOfWork([&] { connection_.beginTrans(); }).number(), sql::provider::transactionOpen);
    connection_.rollbackTrans();
}

TEST_F(HostConnectionTest, AfterTheServerHasUndoneATransactionNothingRunsOutsideOfIt) {
    host_.grantLock();
    connection_.beginTrans();
    host_.answerRows("SELECT @@TRANCOUNT", {"open_transactions"}, {{0}});
    host_.refuse("UPDATE", refused, "Víctima de un bloqueo");
    EXPECT_EQ(errorOfWork([&] { connection_.execute("UPDATE DPI SET a = 1"); }).description(), "Víctima de un bloqueo");
    const std::size_t sent = host_.statements.size();
    EXPECT_EQ(errorOfWork([&] { connection_.execute("INSERT INTO MODPI (a) VALUES (1)"); }).details().sqlState,
              "40000");
    EXPECT_EQ(host_.statements.size(), sent);
    EXPECT_EQ(errorOfWork([&] { connection_.commitTrans(); }).details().sqlState, "40000");
    EXPECT_NO_THROW(connection_.execute("INSERT INTO MODPI (a) VALUES (1)"));
}

TEST_F(HostConnectionTest, AnErrorThatLeavesTheTransactionOpenIsNoEnd) {
    host_.grantLock();
    connection_.beginTrans();
    host_.refuse("UPDATE", refused, "Columna desconocida");
    errorOfWork([&] { connection_.execute("UPDATE DPI SET a = 1"); });
    EXPECT_NO_THROW(connection_.execute("INSERT INTO MODPI (a) VALUES (1)"));
    EXPECT_NO_THROW(connection_.commitTrans());
}

TEST_F(HostConnectionTest, TheCatalogueIsAPropertyOfTheConnection) {
    const auto property = FakeObject::make();
    property->onGet("Value", Variant::text("TALLER"));
    const auto properties = FakeObject::make();
    properties->on("Item", DISPATCH_PROPERTYGET, [&](FakeCall& call) {
        return call.value(0) == sql::Value("Current Catalog") ? call.answer(property->variant()) : DISP_E_BADINDEX;
    });
    host_.object->onGet("Properties", properties->variant());
    EXPECT_EQ(connection_.currentCatalog(), "TALLER");
}

TEST_F(HostConnectionTest, ALostConnectionIsNotAlive) {
    EXPECT_TRUE(connection_.isAlive());
    host_.refuse("SELECT 1", failed, "Conexión perdida");
    EXPECT_FALSE(connection_.isAlive());
    host_.answerRows("SELECT 1", {"alive"}, {{1}});
    host_.object->onGet("State", Variant::longNumber(0));
    EXPECT_FALSE(connection_.isAlive());
}

TEST_F(HostConnectionTest, WithoutTheHostsConnectionEveryOperationIsAnError) {
    HostConnection none{LateObject()};
    EXPECT_EQ(errorOfWork([&] { none.execute("Select 1"); }).number(), runtime::objectNotSet);
    EXPECT_FALSE(none.isAlive());
}

// A class object for ADODB.Recordset, in place of the system's.
class RecordsetClass final : public IClassFactory {
  public:
    explicit RecordsetClass(Ref<FakeObject> set) : set_(std::move(set)) {}
    virtual ~RecordsetClass() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** out) override {
        return set_->QueryInterface(id, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    Ref<FakeObject> set_;
};

class BinaryColumnTest : public HostConnectionTest {
  protected:
    BinaryColumnTest() : class_(set_) {
        // The rows of the table as the Recordset finds them: key, name, content.
        set_->on("Open", DISPATCH_METHOD, [this](FakeCall& call) {
            opened_ = call.value(0).toText();
            cursor_ = call.value(2).toLong();
            lock_ = call.value(3).toLong();
            EXPECT_EQ(call.argument(1).pdispVal, host_.object.get());
            return S_OK;
        });
        set_->on("EOF", DISPATCH_PROPERTYGET,
                 [this](FakeCall& call) { return call.answer(Variant::boolean(at_ >= table_.size())); });
        set_->on("MoveNext", DISPATCH_METHOD, [this](FakeCall&) {
            ++at_;
            return S_OK;
        });
        const auto fields = FakeObject::make();
        fields->on("Item", DISPATCH_PROPERTYGET,
                   [this](FakeCall& call) { return call.answer(field(call.value(0).toLong())->variant()); });
        set_->onGet("Fields", fields->variant());
        set_->on("Update", DISPATCH_METHOD, [this](FakeCall&) {
            updated_ = true;
            return S_OK;
        });
        set_->on("Close", DISPATCH_METHOD, [](FakeCall&) { return S_OK; });
        host_.answer("select", [this](FakeCall& call) {
            return call.answer(fakeSet(host_.seen, {"Dex_Id", "Dex_Fic", "Dex_Doc"}, table_)->variant());
        });
        CLSID id{};
        EXPECT_GE(CLSIDFromProgID(L"ADODB.Recordset", &id), 0);
        EXPECT_GE(CoRegisterClassObject(id, &class_, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registered_), 0);
    }

    Ref<FakeObject> field(std::int32_t column) {
        const auto made = FakeObject::make();
        made->onGet("Type", Variant::longNumber(column == 2 ? 205 : 3));
        const auto place = static_cast<std::size_t>(column);
        made->on("Value", DISPATCH_PROPERTYGET,
                 [this, place](FakeCall& call) { return call.answer(Variant::of(table_.at(at_).at(place))); });
        made->on("Value", DISPATCH_PROPERTYPUT, [this, place](FakeCall& call) {
            sql::Bytes content = std::get<sql::Bytes>(call.value(0).raw());
            if (stores_) {
                table_.at(at_).at(place) = std::move(content);
            }
            return S_OK;
        });
        return made;
    }

    std::vector<sql::Row> table_{{1, "a.pdf", sql::Value()}, {2, "b.pdf", sql::Value()}};
    std::size_t at_ = 0;
    bool updated_ = false;
    bool stores_ = true;
    std::string opened_;
    std::int32_t cursor_ = -1;
    std::int32_t lock_ = -1;
    Ref<FakeObject> set_ = FakeObject::make();
    RecordsetClass class_;
    sql::Bytes content_{std::byte{1}, std::byte{2}, std::byte{3}};
};

TEST_F(BinaryColumnTest, AContentIsWrittenThroughARecordsetOnTheHostsConnection) {
    sql::Recordset rows = connection_.execute("select * from DOCX.dbo.Dex");
    rows.moveNext();
    rows.updateBinary("Dex_Doc", content_);
    EXPECT_EQ(opened_, "select * from DOCX.dbo.Dex");
    EXPECT_EQ(cursor_, 0);
    EXPECT_EQ(lock_, 3);
    EXPECT_TRUE(updated_);
    EXPECT_TRUE(table_[0][2].isNull());
    EXPECT_EQ(table_[1][2], sql::Value(content_));
    EXPECT_EQ(rows["Dex_Doc"], sql::Value(content_));
}

TEST_F(BinaryColumnTest, AnEmptyContentIsNotNull) {
    sql::Recordset rows = connection_.execute("select * from Dex");
    rows.updateBinary("Dex_Doc", {});
    EXPECT_EQ(table_[0][2], sql::Value(sql::Bytes()));
}

TEST_F(BinaryColumnTest, AContentThatDidNotArriveWholeIsAnError) {
    stores_ = false;
    sql::Recordset rows = connection_.execute("select * from Dex");
    EXPECT_EQ(errorOfWork([&] { rows.updateBinary("Dex_Doc", content_); }).description(),
              "El contenido no se guardó entero.");
    EXPECT_TRUE(rows["Dex_Doc"].isNull());
}

TEST_F(BinaryColumnTest, ARowThatAnotherClientHasDeletedOrChangedIsGone) {
    sql::Recordset rows = connection_.execute("select * from Dex");
    table_[0][1] = "otro.pdf";
    EXPECT_EQ(errorOfWork([&] { rows.updateBinary("Dex_Doc", content_); }).number(), sql::provider::rowGone);
    EXPECT_FALSE(updated_);
}

TEST_F(BinaryColumnTest, AColumnOfAnotherKindIsRefused) {
    sql::Recordset rows = connection_.execute("select * from Dex");
    try {
        rows.updateBinary("Dex_Fic", content_);
        FAIL();
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 3251);
    }
}

TEST_F(BinaryColumnTest, AnErrorOfTheRecordsetKeepsItsParts) {
    set_->on("Update", DISPATCH_METHOD,
             [](FakeCall& call) { return call.raise(failed, "Disco lleno", "Host.Provider"); });
    sql::Recordset rows = connection_.execute("select * from Dex");
    const sql::DbError error = errorOfWork([&] { rows.updateBinary("Dex_Doc", content_); });
    EXPECT_EQ(error.number(), sql::provider::failure);
    EXPECT_EQ(error.description(), "Disco lleno");
    EXPECT_EQ(error.source(), "Host.Provider");
}

}  // namespace
}  // namespace velmora::com
