#include "velmora/adapters/com/errors.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "velmora/adapters/com/ref.h"
#include "velmora/adapters/com/text.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::com {
namespace {

std::string textOf(BSTR text) {
    return text == nullptr ? std::string() : fromWide({text, SysStringLen(text)});
}

TEST(ComErrors, NumbersOfTheLanguageHaveItsCodes) {
    EXPECT_EQ(codeOf(91), static_cast<HRESULT>(0x800A005BL));
    EXPECT_EQ(numberOf(static_cast<HRESULT>(0x800A005BL)), 91);
    EXPECT_EQ(numberOf(static_cast<HRESULT>(0x800A0BCDL)), 3021);
}

TEST(ComErrors, NumbersOfAProviderAreTheirOwnCodes) {
    EXPECT_EQ(codeOf(sql::provider::missingTable), static_cast<HRESULT>(0x80040E37L));
    EXPECT_EQ(numberOf(static_cast<HRESULT>(0x80040E37L)), sql::provider::missingTable);
}

TEST(ComErrors, EveryCodeIsAFailure) {
    EXPECT_LT(codeOf(0), 0);
    EXPECT_LT(codeOf(100000), 0);
    EXPECT_EQ(codeOf(-9998), -9998);
}

TEST(ComErrors, ARunTimeErrorLeavesWithItsThreeParts) {
    ExceptionInfo info;
    const HRESULT answer =
        guarded(info.out(), [] { throw runtime::RuntimeError(-9998, "La conexión se perdió", "VELMORA.Ñ"); });
    EXPECT_EQ(answer, DISP_E_EXCEPTION);
    EXPECT_EQ(info.filled().scode, -9998);
    EXPECT_EQ(textOf(info.filled().bstrDescription), "La conexión se perdió");
    EXPECT_EQ(textOf(info.filled().bstrSource), "VELMORA.Ñ");
}

TEST(ComErrors, AnErrorComesBackAsItLeft) {
    ExceptionInfo info;
    const HRESULT answer = guarded(info.out(), [] { throw runtime::RuntimeError(3021, "No hay fila", "Datos"); });
    const runtime::RuntimeError back = errorOf(answer, info, "EOF");
    EXPECT_EQ(back.number(), 3021);
    EXPECT_EQ(back.description(), "No hay fila");
    EXPECT_EQ(back.source(), "Datos");
}

TEST(ComErrors, WithoutPlaceForDetailsTheCodeIsTheAnswer) {
    EXPECT_EQ(guarded(static_cast<EXCEPINFO*>(nullptr), [] { runtime::raise(runtime::objectNotSet); }),
              static_cast<HRESULT>(0x800A005BL));
}

TEST(ComErrors, NoOtherExceptionLeavesEither) {
    ExceptionInfo info;
    EXPECT_EQ(guarded(info.out(), [] { throw std::logic_error("defect"); }), DISP_E_EXCEPTION);
    EXPECT_EQ(info.filled().scode, E_FAIL);
    EXPECT_EQ(textOf(info.filled().bstrDescription), "defect");
    ExceptionInfo other;
    EXPECT_EQ(guarded(other.out(), [] { throw 7; }), DISP_E_EXCEPTION);
}

TEST(ComErrors, ACallerOfTheInterfaceItselfFindsTheThreadsError) {
    const HRESULT answer =
        guarded(IID_IDispatch, [] { throw runtime::RuntimeError(76, "No hay carpeta", "VELMORA.Archivos"); });
    EXPECT_EQ(answer, static_cast<HRESULT>(0x800A004CL));
    Ref<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.out()), S_OK);
    BSTR words = nullptr;
    ASSERT_GE(info->GetDescription(&words), 0);
    EXPECT_EQ(textOf(words), "No hay carpeta");
    SysFreeString(words);
}

TEST(ComErrors, AnswersOfTheAutomationAreNumberedLikeTheLanguages) {
    struct Row {
        HRESULT answer;
        long number;
    };
    for (const Row& row :
         {Row{DISP_E_UNKNOWNNAME, 438}, Row{DISP_E_MEMBERNOTFOUND, 438}, Row{DISP_E_BADPARAMCOUNT, 450},
          Row{DISP_E_PARAMNOTOPTIONAL, 449}, Row{DISP_E_TYPEMISMATCH, 13}, Row{E_OUTOFMEMORY, 7}}) {
        ExceptionInfo none;
        const runtime::RuntimeError error = errorOf(row.answer, none, "jLoad");
        EXPECT_EQ(error.number(), row.number);
        EXPECT_NE(error.description().find("jLoad"), std::string::npos) << error.description();
    }
}

TEST(ComErrors, AnUnknownAnswerKeepsItsNumber) {
    ExceptionInfo none;
    EXPECT_EQ(errorOf(E_ACCESSDENIED, none, "x").number(), long{E_ACCESSDENIED});
}

TEST(ComErrors, ACodeOfTheCalleesOwnCountsBeforeTheOther) {
    ExceptionInfo info;
    info.out()->wCode = 1004;
    EXPECT_EQ(errorOf(DISP_E_EXCEPTION, info, "x").number(), 1004);
}

HRESULT STDMETHODCALLTYPE fillInLate(EXCEPINFO* late) {
    late->scode = E_FAIL;
    late->bstrDescription = SysAllocString(L"tarde");
    return S_OK;
}

TEST(ComErrors, WordsThatAreFilledInLaterAreAskedFor) {
    ExceptionInfo info;
    info.out()->pfnDeferredFillIn = fillInLate;
    EXPECT_EQ(errorOf(DISP_E_EXCEPTION, info, "x").description(), "tarde");
}

}  // namespace
}  // namespace velmora::com
