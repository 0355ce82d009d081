#include "velmora/services/document_store.h"

#include <gmock/gmock.h>

#include "services_bench.h"

namespace velmora::services {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

constexpr DocumentOwner proposal7{.nIdExp = 7, .nIdAct = -8};

class DocumentStoreTest : public ServicesTest {
  protected:
    DocumentStoreTest() { connection.clear(); }

    void put(int id, const char* name, const char* content) {
        database->execute("INSERT INTO DOCTALLER.dbo.dex (Dex_Id,Dex_IdExp,Dex_IdAct,Dex_Fic,Dex_Doc) VALUES (" +
                          std::to_string(id) + ",7,-8,N'" + name + "'," + content + ")");
    }
    std::string source(std::string_view content = "%PDF-1.7") { return write(desktop.file("pieza.pdf"), content); }

    DocumentStore store{session, desk};
};

TEST_F(DocumentStoreTest, TheCatalogueOfDocumentsIsNamedAfterTheSessions) {
    EXPECT_EQ(store.sPrefijo(), "DOCTALLER.dbo.");
}

TEST_F(DocumentStoreTest, TheOwnersDocumentsAreListedTheNewestFirst) {
    put(3, "a.pdf", "Null");
    put(9, "b.pdf", "Null");
    database->execute("INSERT INTO DOCTALLER.dbo.dex (Dex_IdExp,Dex_IdAct,Dex_Fic) VALUES (8,-8,N'de otra')");
    database->execute("INSERT INTO DOCTALLER.dbo.dex (Dex_IdExp,Dex_IdAct,Dex_Fic) VALUES (7,-1,N'de otra clase')");
    sql::Recordset rows = store.list(proposal7);
    EXPECT_THAT(connection.log(),
                ElementsAre("Select dex_id,dex_fic from DOCTALLER.dbo.dex where dex_idExp =7 and dex_idAct=-8 order by "
                            "dex_id desc"));
    ASSERT_EQ(rows.recordCount(), 2U);
    EXPECT_EQ(rows["dex_fic"], sql::Value("b.pdf"));
    rows.moveNext();
    EXPECT_EQ(rows["dex_id"], sql::Value(3));
}

TEST_F(DocumentStoreTest, AFileMovesIntoTheDatabaseStatementByStatement) {
    const std::string path = source();
    EXPECT_TRUE(store.msAnadirFichero(path, proposal7));
    EXPECT_THAT(connection.log(),
                ElementsAre("BEGIN", "Select DPI_Id from DPI where DPI_Id = 7",
                            "INSERT INTO DOCTALLER.dbo.Dex (Dex_Doc,Dex_Fic,Dex_FicDes,Dex_Idexp,Dex_IdAct,Dex_IdUsu,"
                            "Dex_Estado,Dex_Importe,Dex_Fecha) VALUES (Null,N'pieza.pdf',N'pdf',7,-8,7,1,0,getdate())",
                            "Select isnull(max(dex_id),1) from DOCTALLER.dbo.dex", "COMMIT",
                            "select * from DOCTALLER.dbo.Dex where Dex_Id= 1"));
    EXPECT_EQ(value("select Dex_Doc from DOCTALLER.dbo.dex"), sql::Value(bytes("%PDF-1.7")));
    EXPECT_EQ(value("select Dex_Fecha from DOCTALLER.dbo.dex"), sql::Value(morning));
    EXPECT_FALSE(exists(path)) << "attaching moves the document";
    EXPECT_THAT(screen.messages, IsEmpty()) << "and says nothing";
}

TEST_F(DocumentStoreTest, AFileClosedToWritingIsStoredAndStaysWithoutAMessage) {
    const std::string path = source();
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_TRUE(store.msAnadirFichero(path, proposal7));
    EXPECT_TRUE(exists(path));
    EXPECT_EQ(value("select Dex_Doc from DOCTALLER.dbo.dex"), sql::Value(bytes("%PDF-1.7")));
    EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(DocumentStoreTest, APathWithoutASeparatorIsTheName) {
    const fs::path before = fs::current_path();
    fs::current_path(desktop.withSeparator());
    write("suelto", "x");
    EXPECT_TRUE(store.msAnadirFichero("suelto", proposal7));
    fs::current_path(before);
    EXPECT_EQ(query("select Dex_Fic from DOCTALLER.dbo.dex"), "suelto");
    EXPECT_EQ(query("select Dex_FicDes from DOCTALLER.dbo.dex"), "");
    EXPECT_EQ(query("select len(Dex_FicDes) from DOCTALLER.dbo.dex"), "0") << "empty, not null";
}

TEST_F(DocumentStoreTest, ANameWithAnApostropheIsStored) {
    const std::string path = write(desktop.file("cadena 2'.pdf"), "x");
    EXPECT_TRUE(store.msAnadirFichero(path, proposal7));
    EXPECT_EQ(query("select Dex_Fic from DOCTALLER.dbo.dex"), "cadena 2'.pdf");
}

TEST_F(DocumentStoreTest, TheKeyIsReadInTheTransactionOfTheInsert) {
    put(41, "otro.pdf", "0x41");
    EXPECT_TRUE(store.msAnadirFichero(source("nuevo"), proposal7));
    EXPECT_EQ(value("select Dex_Doc from DOCTALLER.dbo.dex where Dex_Id = 42"), sql::Value(bytes("nuevo")));
    EXPECT_EQ(value("select Dex_Doc from DOCTALLER.dbo.dex where Dex_Id = 41"), sql::Value(bytes("A")));
}

TEST_F(DocumentStoreTest, AFileThatCannotBeReadLeavesTheRowWithoutContent) {
    const std::string path = desktop.file("falta.pdf");
    EXPECT_FALSE(store.msAnadirFichero(path, proposal7));
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex where Dex_Doc is null"), "1");
    EXPECT_THAT(screen.messageTexts(),
                ElementsAre("Error : \r\nNo se puede leer el fichero " + path, "Error insertando el documento"));
    EXPECT_EQ(screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(screen.messages[1].icon, screen::Icon::critical);
    screen.messages.clear();
    store.LoadFileFromDB(1);
    EXPECT_THAT(screen.messages, IsEmpty()) << "viewing it does nothing";
    EXPECT_THAT(services.opened, IsEmpty());
}

/// A session on a database in files, with every path that denotes one of them.
class OwnFilesTest : public DocumentStoreTest {
  protected:
    OwnFilesTest() {
        data::createDatabase(*files_);
        files_->execute("INSERT INTO DPI (DPI_Id,DPI_Tipo) VALUES (7,0)");
    }

    void expectRefused(const std::string& path, const std::string& target) {
        screen.messages.clear();
        const std::string before = contentOf(target);
        EXPECT_TRUE(onFiles.msAnadirFichero(path, proposal7)) << path;
        EXPECT_THAT(screen.messageTexts(),
                    ElementsAre("El fichero es de la propia base de datos y no se puede adjuntar"))
            << path;
        EXPECT_TRUE(fs::exists(fs::symlink_status(path))) << path;
        EXPECT_TRUE(contentOf(target) == before) << path;
        EXPECT_EQ(files_->execute("select count(*) from DOCTALLER.dbo.dex")[0].toLong(), 0) << path;
    }

    std::string main = desktop.file("taller.db");
    std::unique_ptr<sql::Connection> files_ =
        sqlite::openDatabase(main, {.clock = [] { return morning; }, .catalog = "TALLER"});
    adapters::StandInSession sessionOnFiles{*files_, 7};
    DocumentStore onFiles{sessionOnFiles, desk};
};

TEST_F(OwnFilesTest, TheDatabasesOwnFilesAreNotAttached) {
    for (const char* name :
         {"taller.db", "taller.db-wal", "taller.db-shm", "DOCtaller.db", "DOCtaller.db-wal", "DOCtaller.db-shm"}) {
        ASSERT_TRUE(exists(desktop.file(name))) << name;
        expectRefused(desktop.file(name), desktop.file(name));
    }
    EXPECT_EQ(screen.messages.back().icon, screen::Icon::critical);
}

TEST_F(OwnFilesTest, NorUnderAnotherPathThatLeadsToThem) {
    fs::create_directory(desktop.file("sub"));
    fs::create_directory_symlink(desktop.withSeparator(), temporary.file("carpeta"));
    fs::create_symlink(main, desktop.file("enlace.pdf"));
    fs::create_hard_link(desktop.file("DOCtaller.db"), desktop.file("duro.pdf"));
    expectRefused(desktop.file("sub/../taller.db"), main);
    expectRefused(desktop.file("enlace.pdf"), main);
    expectRefused(desktop.file("duro.pdf"), desktop.file("DOCtaller.db"));
    expectRefused(temporary.file("carpeta/DOCtaller.db-wal"), desktop.file("DOCtaller.db-wal"));
    const fs::path before = fs::current_path();
    fs::current_path(desktop.withSeparator());
    expectRefused("taller.db", main);
    fs::current_path(before);
}

TEST_F(OwnFilesTest, AnyOtherFileBesideThemIs) {
    const std::string copy = write(desktop.file("taller.db.copia"), "x");
    EXPECT_TRUE(onFiles.msAnadirFichero(copy, proposal7));
    EXPECT_FALSE(exists(copy));
    EXPECT_THAT(screen.messages, IsEmpty());
    EXPECT_EQ(files_->execute("select count(*) from DOCTALLER.dbo.dex")[0].toLong(), 1);
}

TEST_F(OwnFilesTest, ADatabaseOpenedThroughALinkKnowsItsFilesAndTheirLogs) {
    fs::create_directory(temporary.file("datos"));
    fs::create_symlink(desktop.file("taller.db"), temporary.file("datos/enlace.db"));
    const auto linked = sqlite::openDatabase(temporary.file("datos/enlace.db"), {.catalog = "TALLER"});
    linked->execute("select count(*) from DPI");
    adapters::StandInSession other(*linked, 7);
    DocumentStore throughLink(other, desk);
    EXPECT_TRUE(throughLink.msAnadirFichero(desktop.file("taller.db-wal"), proposal7));
    EXPECT_TRUE(throughLink.msAnadirFichero(main, proposal7));
    EXPECT_EQ(screen.messages.size(), 2U);
    EXPECT_TRUE(exists(main));
    EXPECT_TRUE(exists(desktop.file("taller.db-wal")));
}

TEST_F(DocumentStoreTest, ADatabaseInMemoryHasNoFiles) {
    EXPECT_THAT(connection.files(), IsEmpty());
}

// What remains after a failure at each step of an addition.

struct Failure {
    int step;
    const char* what;
    std::vector<std::string> messages;
    bool raises;
    const char* rows;  ///< in the table afterwards
};

TEST_F(DocumentStoreTest, AFailureAtAnyStepKeepsTheFileAndNeverHalfARow) {
    const std::string told = "Error : \r\nFallo provocado";
    const Failure failures[] = {
        {0, "begin", {}, true, "0"},
        {1, "look at the proposal", {}, true, "0"},
        {2, "insert", {"Error añadiendo fichero"}, false, "0"},
        {3, "key", {}, true, "0"},
        {4, "commit", {}, true, "0"},
        {5, "select of the row", {told, "Error insertando el documento"}, false, "1"},
        {6, "content", {told, "Error insertando el documento"}, false, "1"},
    };
    for (const Failure& each : failures) {
        database->execute("delete from DOCTALLER.dbo.dex");
        screen.messages.clear();
        const std::string path = source();
        faults.failAt(each.step);
        bool raised = false;
        try {
            store.msAnadirFichero(path, proposal7);
        } catch (const sql::DbError& error) {
            raised = true;
            EXPECT_EQ(error.description(), "Fallo provocado") << each.what;
        }
        faults.failAt(-1);
        EXPECT_EQ(raised, each.raises) << each.what;
        EXPECT_EQ(screen.messageTexts(), each.messages) << each.what;
        EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex"), each.rows) << each.what;
        EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex where not Dex_Doc is null"), "0") << each.what;
        EXPECT_EQ(contentOf(path), "%PDF-1.7") << each.what;
        EXPECT_NO_THROW(connection.beginTrans()) << each.what << ": a transaction was left open";
        connection.rollbackTrans();
    }
    EXPECT_TRUE(store.msAnadirFichero(source(), proposal7)) << "afterwards all is well again";
}

TEST_F(DocumentStoreTest, ARowThatVanishesBeforeItsContentIsTold) {
    const std::string path = source();
    EXPECT_FALSE(store.SaveFileToDB(path, 99));
    EXPECT_THAT(screen.messageTexts(),
                ElementsAre("Error : \r\nEl conjunto de registros no está sobre ningún registro."));
    EXPECT_TRUE(exists(path));
}

// Viewing.

TEST_F(DocumentStoreTest, ADocumentIsWrittenToTheTemporaryFolderAndOpened) {
    put(1, "plano ñ.pdf", "0x255044462d");
    store.LoadFileFromDB(1);
    EXPECT_THAT(connection.log(), ElementsAre("select Dex_Doc,Dex_Fic from DOCTALLER.dbo.Dex where Dex_Id= 1"));
    EXPECT_EQ(contentOf(temporary.file("plano ñ.pdf")), "%PDF-") << "it stays behind";
    EXPECT_THAT(services.opened, ElementsAre(temporary.file("plano ñ.pdf")));
    database->execute("update DOCTALLER.dbo.dex set Dex_Doc = 0x41");
    store.LoadFileFromDB(1);
    EXPECT_EQ(contentOf(temporary.file("plano ñ.pdf")), "A") << "the next view of the name overwrites it";
    EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(DocumentStoreTest, WithoutARowOrContentNothingHappens) {
    put(1, "vacio.pdf", "Null");
    store.LoadFileFromDB(1);
    store.LoadFileFromDB(2);
    EXPECT_THAT(screen.messages, IsEmpty());
    EXPECT_THAT(services.opened, IsEmpty());
    EXPECT_FALSE(exists(temporary.file("vacio.pdf")));
}

TEST_F(DocumentStoreTest, AStoredNameStaysInTheTemporaryFolder) {
    put(1, "../fuera.txt", "0x41");
    put(2, "/etc/fuera.txt", "0x42");
    put(3, "..", "0x43");
    store.LoadFileFromDB(1);
    EXPECT_EQ(contentOf(temporary.file("fuera.txt")), "A");
    EXPECT_FALSE(exists(temporary.file("../fuera.txt")));
    store.LoadFileFromDB(2);
    EXPECT_EQ(contentOf(temporary.file("fuera.txt")), "B");
    EXPECT_THAT(screen.messages, IsEmpty());
    store.LoadFileFromDB(3);
    EXPECT_THAT(screen.messageTexts(), ElementsAre("El nombre del documento no es un nombre de fichero"));
    EXPECT_EQ(services.opened.size(), 2U);
}

TEST_F(DocumentStoreTest, ADocumentWhoseNameNoFileSystemTakesIsViewed) {
    // As long as the column allows, and longer than any file name.
    put(1, (std::string(256, 'p') + ".pdf").c_str(), "0x41");
    put(2, "plano\n2.pdf", "0x42");
    store.LoadFileFromDB(1);
    store.LoadFileFromDB(2);
    EXPECT_THAT(screen.messages, IsEmpty());
    EXPECT_THAT(services.opened,
                ElementsAre(temporary.file(std::string(251, 'p') + ".pdf"), temporary.file("plano 2.pdf")));
    EXPECT_EQ(contentOf(services.opened[0]), "A");
    EXPECT_EQ(contentOf(services.opened[1]), "B");
    EXPECT_EQ(query("select Dex_Fic from DOCTALLER.dbo.dex where Dex_Id = 2"), "plano\n2.pdf")
        << "the stored name stays";
}

TEST_F(DocumentStoreTest, WithoutATemporaryFolderNothingIsWrittenAndWordsSaySo) {
    const fs::path before = fs::current_path();
    fs::current_path(desktop.withSeparator());
    put(1, "plano.pdf", "0x41");
    services.folder.clear();
    store.LoadFileFromDB(1);
    fs::current_path(before);
    EXPECT_THAT(screen.messageTexts(), ElementsAre("No hay carpeta temporal en la que escribir plano.pdf"));
    EXPECT_FALSE(exists(desktop.file("plano.pdf"))) << "the current folder is not the temporary one";
    EXPECT_THAT(services.opened, IsEmpty());
    try {
        store.temporaryPath("a.pdf");
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 76);
    }
}

TEST_F(DocumentStoreTest, AFailureToViewIsShown) {
    put(1, "plano.pdf", "0x41");
    services.openingCode = 31;
    store.LoadFileFromDB(1);
    connection.refuse("select Dex_Doc");
    store.LoadFileFromDB(1);
    services.folder = temporary.file("no hay/");
    store.LoadFileFromDB(1);
    EXPECT_THAT(screen.messageTexts(),
                ElementsAre("No application is associated with this file type.", "Rechazada",
                            "No se puede escribir el fichero " + (temporary.file("no hay/plano.pdf"))));
}

TEST_F(DocumentStoreTest, AnEmptyFileIsStoredAndViewedEmpty) {
    EXPECT_TRUE(store.msAnadirFichero(source(""), proposal7));
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex where Dex_Doc is null"), "0");
    store.LoadFileFromDB(1);
    EXPECT_EQ(contentOf(temporary.file("pieza.pdf")), "");
}

TEST_F(DocumentStoreTest, FiftyMegabytesGoInAndComeOutByteForByte) {
    std::string content(50 * 1024 * 1024, '\0');
    std::uint32_t state = 7;
    for (char& each : content) {
        state = state * 1664525u + 1013904223u;
        each = static_cast<char>(state >> 24u);
    }
    EXPECT_TRUE(store.msAnadirFichero(source(content), proposal7));
    EXPECT_FALSE(exists(desktop.file("pieza.pdf")));
    store.LoadFileFromDB(1);
    EXPECT_TRUE(contentOf(temporary.file("pieza.pdf")) == content);
}

TEST_F(DocumentStoreTest, ADocumentIsDeletedByItsKey) {
    put(1, "a.pdf", "0x41");
    put(2, "b.pdf", "0x42");
    sql::Recordset list = store.list(proposal7);
    list.moveNext();
    const ShownDocument first = store.shown(list, proposal7);
    list.moveFirst();
    connection.clear();
    store.remove(first);
    EXPECT_THAT(connection.log(),
                ElementsAre("BEGIN",
                            "Select dex_id,dex_fic from DOCTALLER.dbo.dex where dex_idExp =7 and dex_idAct=-8 and "
                            "dex_id = 1",
                            "delete from DOCTALLER.dbo.dex where dex_id = 1", "COMMIT"));
    EXPECT_EQ(query("select Dex_Fic from DOCTALLER.dbo.dex"), "b.pdf");
    EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(DocumentStoreTest, ADocumentThatIsGoneOrAnothersIsNotDeleted) {
    for (const char* meanwhile : {"delete from DOCTALLER.dbo.dex", "update DOCTALLER.dbo.dex set Dex_IdExp=8"}) {
        put(1, "a.pdf", "0x41");
        const ShownDocument document = store.shown(store.list(proposal7), proposal7);
        database->execute(meanwhile);
        connection.clear();
        screen.messages.clear();
        store.remove(document);
        EXPECT_THAT(screen.messageTexts(), ElementsAre("Este documento ya no existe: otro usuario lo ha eliminado."));
        EXPECT_EQ(screen.messages[0].icon, screen::Icon::critical);
        EXPECT_THAT(connection.logged("delete"), IsEmpty()) << meanwhile;
        EXPECT_EQ(connection.log().back(), "ROLLBACK");
        database->execute("delete from DOCTALLER.dbo.dex");
    }
}

TEST_F(DocumentStoreTest, ADocumentThatAnotherChangedIsAskedAboutOnce) {
    put(1, "a.pdf", "0x41");
    const ShownDocument document = store.shown(store.list(proposal7), proposal7);
    database->execute("update DOCTALLER.dbo.dex set Dex_Fic='definitivo.pdf'");
    screen.whileAsked = [&] { EXPECT_EQ(connection.log().back(), "ROLLBACK") << "a transaction waits on the user"; };
    screen.queue(screen::Answer::no);
    store.remove(document);
    EXPECT_THAT(screen.messageTexts(), ElementsAre("Otro usuario ha cambiado este documento desde que se mostró.\r\n"
                                                   "¿Desea eliminarlo de todos modos?"));
    EXPECT_EQ(screen.messages[0].defaultButton, 2);
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex"), "1");
    screen.queue(screen::Answer::yes);
    store.remove(document);
    EXPECT_EQ(screen.messages.size(), 2U);
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex"), "0");
}

TEST_F(DocumentStoreTest, AProposalThatIsGoneGetsNoDocumentAndTheFileStays) {
    const std::string path = source();
    database->execute("delete from DPI where DPI_Id=7");
    EXPECT_TRUE(store.msAnadirFichero(path, proposal7));
    EXPECT_THAT(screen.messageTexts(), ElementsAre("La propuesta nº 7 ya no existe: otro usuario la ha eliminado.\r\n"
                                                   "No se ha adjuntado nada."));
    EXPECT_EQ(screen.messages[0].icon, screen::Icon::critical);
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex"), "0");
    EXPECT_EQ(contentOf(path), "%PDF-1.7");
    EXPECT_THAT(connection.log(), ElementsAre("BEGIN", "Select DPI_Id from DPI where DPI_Id = 7", "ROLLBACK"));
}

TEST_F(DocumentStoreTest, WhatElseTheHostKeepsDocumentsOfIsNotLookedFor) {
    EXPECT_TRUE(store.msAnadirFichero(source(), {.nIdExp = 99, .nIdAct = -1}));
    EXPECT_THAT(connection.logged("DPI"), IsEmpty());
    EXPECT_EQ(query("select Dex_IdExp from DOCTALLER.dbo.dex"), "99");
}

TEST_F(DocumentStoreTest, AFaultOfTheProgramInTheMidstOfAWriteIsRolledBack) {
    put(1, "a.pdf", "0x41");
    const ShownDocument document = store.shown(store.list(proposal7), proposal7);
    for (const char* statement : {"INSERT INTO DOC", "Select isnull(max", "delete from DOC"}) {
        connection.breakOn(statement);
        const auto deed = [&] {
            if (std::string_view(statement).starts_with("delete")) {
                store.remove(document);
            } else {
                store.msAnadirFichero(source(), proposal7);
            }
        };
        EXPECT_THROW(deed(), std::logic_error) << statement;
        EXPECT_EQ(connection.log().back(), "ROLLBACK") << statement;
        EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex"), "1") << statement;
        EXPECT_TRUE(exists(desktop.file("pieza.pdf"))) << statement;
    }
}

TEST_F(DocumentStoreTest, ALostConnectionCannotNameItsCatalogue) {
    class Gone final : public sql::ForwardingConnection {
      public:
        using ForwardingConnection::ForwardingConnection;
        std::string currentCatalog() const override { throw sql::DbError(sql::provider::failure, "Se perdió"); }
    };
    Gone gone(*database);
    adapters::StandInSession lost(gone);
    EXPECT_THROW(DocumentStore(lost, desk), sql::DbError);
}

}  // namespace
}  // namespace velmora::services
