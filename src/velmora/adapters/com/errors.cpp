#include "velmora/adapters/com/errors.h"

#include <algorithm>
#include <array>
#include <exception>
#include <new>
#include <optional>
#include <string>

#include "velmora/adapters/com/ref.h"
#include "velmora/adapters/com/text.h"

namespace velmora::com {

namespace {

/// Codes of the language's own errors: severity and facility in the upper half, the number in the lower.
constexpr unsigned long languageCodes = 0x800A0000UL;
constexpr unsigned long upperHalf = 0xFFFF0000UL;
constexpr unsigned long lowerHalf = 0x0000FFFFUL;

/// Answers of the automation itself as the language numbers them.
struct Answer {
    HRESULT code;
    long number;
    std::string_view words;
};

constexpr std::string_view noSuchMember = "El objeto no admite esta propiedad o método";

constexpr std::array answers{
    Answer{DISP_E_UNKNOWNNAME, 438, noSuchMember},
    Answer{DISP_E_MEMBERNOTFOUND, 438, noSuchMember},
    Answer{DISP_E_BADPARAMCOUNT, 450, "Número de argumentos incorrecto o asignación de propiedad no válida"},
    Answer{DISP_E_PARAMNOTOPTIONAL, 449, "Argumento no opcional"},
    Answer{DISP_E_PARAMNOTFOUND, 448, "No se encontró el argumento con nombre"},
    Answer{DISP_E_TYPEMISMATCH, runtime::typeMismatch, "No coinciden los tipos"},
    Answer{DISP_E_BADVARTYPE, runtime::typeMismatch, "No coinciden los tipos"},
    Answer{DISP_E_OVERFLOW, runtime::overflow, "Desbordamiento"},
    Answer{DISP_E_BADINDEX, runtime::subscriptOutOfRange, "El subíndice está fuera del intervalo"},
    Answer{E_OUTOFMEMORY, 7, "Memoria insuficiente"},
    Answer{RPC_E_DISCONNECTED, 462, "El objeto se ha desconectado de sus clientes"},
};

constexpr std::string_view unnamedSource = "VELMORA";

std::string textOfBstr(BSTR text) {
    return text == nullptr ? std::string() : fromWide({text, SysStringLen(text)});
}

/// The system's words for a code; empty when it has none.
std::string systemWords(HRESULT code) {
    wchar_t* words = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&words), 0, nullptr);
    std::string text = length == 0 ? std::string() : fromWide({words, length});
    LocalFree(words);
    const auto end = text.find_last_not_of("\r\n ");
    text.erase(end == std::string::npos ? 0 : end + 1);
    return text;
}

std::string wordsOf(HRESULT code) {
    const std::string words = systemWords(code);
    return words.empty() ? runtime::errorDescription(numberOf(code)) : words;
}

runtime::RuntimeError toldError(const EXCEPINFO& told) {
    const HRESULT code = told.wCode != 0 ? codeOf(told.wCode) : told.scode;
    std::string words = textOfBstr(told.bstrDescription);
    std::string source = textOfBstr(told.bstrSource);
    return {numberOf(code), words.empty() ? wordsOf(code) : std::move(words),
            source.empty() ? std::string(unnamedSource) : std::move(source)};
}

/// The exception that is being handled.
runtime::RuntimeError currentError() {
    try {
        throw;
    } catch (const runtime::RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {7, "Memoria insuficiente"};
    } catch (const std::exception& error) {
        return {E_FAIL, error.what()};
    } catch (...) {
        return {E_FAIL, runtime::errorDescription(0)};
    }
}

std::optional<runtime::RuntimeError> errorOfWork(const std::function<void()>& work) {
    try {
        work();
        return std::nullopt;
    } catch (...) {
        return currentError();
    }
}

BSTR newBstr(const std::string& text) {
    const std::wstring wide = toWide(text);
    return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

void setThreadsError(REFIID interfaceId, const runtime::RuntimeError& error) {
    Ref<ICreateErrorInfo> made;
    if (CreateErrorInfo(made.out()) < 0) {
        return;
    }
    std::wstring description = toWide(error.description());
    std::wstring source = toWide(error.source());
    made->SetGUID(interfaceId);
    made->SetDescription(description.data());
    made->SetSource(source.data());
    if (const Ref<IErrorInfo> info = made.as<IErrorInfo>()) {
        SetErrorInfo(0, info.get());
    }
}

}  // namespace

ExceptionInfo::~ExceptionInfo() {
    SysFreeString(info_.bstrSource);
    SysFreeString(info_.bstrDescription);
    SysFreeString(info_.bstrHelpFile);
}

const EXCEPINFO& ExceptionInfo::filled() {
    if (info_.pfnDeferredFillIn != nullptr) {
        info_.pfnDeferredFillIn(&info_);
        info_.pfnDeferredFillIn = nullptr;
    }
    return info_;
}

long numberOf(HRESULT code) {
    const auto bits = static_cast<unsigned long>(code);
    return (bits & upperHalf) == languageCodes ? static_cast<long>(bits & lowerHalf) : long{code};
}

HRESULT codeOf(long number) {
    const bool isLanguages = number > 0 && number <= static_cast<long>(lowerHalf);
    const auto code = static_cast<HRESULT>(isLanguages ? languageCodes | static_cast<unsigned long>(number)
                                                       : static_cast<unsigned long>(number));
    return code < 0 ? code : E_FAIL;
}

runtime::RuntimeError errorOf(HRESULT answer, ExceptionInfo& info, std::string_view member) {
    if (answer == DISP_E_EXCEPTION) {
        return toldError(info.filled());
    }
    const auto* known = std::ranges::find(answers, answer, &Answer::code);
    if (known == answers.end()) {
        return {numberOf(answer), wordsOf(answer)};
    }
    return {known->number, std::string(known->words) + ": " + std::string(member)};
}

HRESULT guarded(EXCEPINFO* info, const std::function<void()>& work) noexcept {
    try {
        const auto error = errorOfWork(work);
        if (!error) {
            return S_OK;
        }
        if (info == nullptr) {
            return codeOf(error->number());
        }
        *info = {};
        info->scode = codeOf(error->number());
        info->bstrDescription = newBstr(error->description());
        info->bstrSource = newBstr(error->source());
        return DISP_E_EXCEPTION;
    } catch (...) {
        return E_OUTOFMEMORY;  // not even the words of the error could be stored
    }
}

HRESULT guarded(REFIID interfaceId, const std::function<void()>& work) noexcept {
    try {
        const auto error = errorOfWork(work);
        if (!error) {
            return S_OK;
        }
        setThreadsError(interfaceId, *error);
        return codeOf(error->number());
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace velmora::com
