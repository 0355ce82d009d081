#pragma once
// A host's session, connection and result sets made of FakeObjects, with canned rows.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "velmora/platform/sql/recordset.h"

#include "adapters/com/fake_object.h"

namespace velmora::com {

/// How a set offers its rows.
enum class SetKind {
    oneByOne,  ///< Fields, EOF, MoveNext
    inBlocks,  ///< GetRows besides
};

/// A set with these rows.
Ref<FakeObject> fakeSet(const std::shared_ptr<SeenCalls>& seen, const std::vector<std::string>& columns,
                        const std::vector<sql::Row>& rows, SetKind kind = SetKind::oneByOne);

/// The set of a statement without rows.
Ref<FakeObject> fakeClosedSet(const std::shared_ptr<SeenCalls>& seen);

/// A connection that answers statements by their text: with a set, with Nothing, or with an error.
class FakeConnection {
  public:
    using Answer = std::function<HRESULT(FakeCall& call)>;

    explicit FakeConnection(std::shared_ptr<SeenCalls> seen = std::make_shared<SeenCalls>());

    LateObject late() { return object->late(); }
    /// A statement that begins with this text gets the answer; of several the longest counts. Others get a closed set.
    void answer(const std::string& beginning, Answer answer) { answers_[beginning] = std::move(answer); }
    void answerRows(const std::string& beginning, const std::vector<std::string>& columns,
                    const std::vector<sql::Row>& rows);
    void refuse(const std::string& beginning, HRESULT code, const std::string& description);
    /// The server knows the application lock.
    void grantLock(int answer = 0);

    Ref<FakeObject> object;
    std::shared_ptr<SeenCalls> seen;
    std::vector<std::string> statements;  ///< and "BeginTrans", "CommitTrans", "RollbackTrans"

  private:
    HRESULT execute(FakeCall& call);
    std::map<std::string, Answer> answers_;
};

/// The initialised apartment of the thread; one for all tests.
void needCom();

}  // namespace velmora::com
