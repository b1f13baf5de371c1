#include "script/ScriptControl.h"

#include <gtest/gtest.h>

#include <bit>

#include "util/ComApartment.h"
#include "util/ComHandle.h"

namespace {

// A function as it is declared: the byte offset of its slot and the number of its parameters.
struct Slot {
    SHORT offset;
    SHORT parameters;
};

template <class Interface, class... Parameters>
Slot SlotOf(HRESULT (STDMETHODCALLTYPE Interface::*function)(Parameters...)) {
    // The compiler's pointer to a virtual function is the offset in the table plus one.
    struct Pointer {
        std::intptr_t offset;
        std::intptr_t adjustment;
    };
    return {static_cast<SHORT>(std::bit_cast<Pointer>(function).offset - 1), sizeof...(Parameters)};
}

struct Function {
    const wchar_t* name;
    INVOKEKIND kind;
    DISPID id;
    Slot declared;
};

// Each function of the list stands in the registered library with that id, slot and number of parameters.
void Compare(ITypeLib& library, REFIID interfaceId, std::initializer_list<Function> functions) {
    CComReference<ITypeInfo> dispatch;
    ASSERT_EQ(library.GetTypeInfoOfGuid(interfaceId, dispatch.Put()), S_OK);
    HREFTYPE reference = 0;
    CComReference<ITypeInfo> type;
    ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    ASSERT_EQ(dispatch->GetRefTypeInfo(reference, type.Put()), S_OK);
    for (const Function& each : functions) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(each.name)) + " " + std::to_string(each.kind));
        bool isFound = false;
        FUNCDESC* found = nullptr;
        for (UINT i = 0; !isFound && type->GetFuncDesc(i, &found) == S_OK; ++i) {
            CBstr name;
            UINT count = 0;
            ASSERT_EQ(type->GetNames(found->memid, name.Put(), 1, &count), S_OK);
            isFound = name.Text() == each.name && found->invkind == each.kind;
            if (isFound) {
                EXPECT_EQ(found->memid, each.id);
                EXPECT_EQ(found->oVft, each.declared.offset);
                EXPECT_EQ(found->cParams, each.declared.parameters);
            }
            type->ReleaseFuncDesc(found);
        }
        EXPECT_TRUE(isFound);
    }
}

TEST(ScriptControl, IsDeclaredAsItsTypeLibraryIsRegistered) {
    const CComApartment apartment;
    CLSID libraryId;
    ASSERT_EQ(CLSIDFromString(L"{0E59F1D2-1FBE-11D0-8FF2-00A0D10038BC}", &libraryId), S_OK);
    CComReference<ITypeLib> library;
    if (LoadRegTypeLib(libraryId, 1, 0, 0, library.Put()) != S_OK) {
        GTEST_SKIP() << "no Script Control is registered for processes of this width";
    }
    Compare(*library.Get(), __uuidof(IScriptControl),
            {{L"Language", INVOKE_PROPERTYGET, 1500, SlotOf(&IScriptControl::get_Language)},
             {L"Language", INVOKE_PROPERTYPUT, 1500, SlotOf(&IScriptControl::put_Language)},
             {L"State", INVOKE_PROPERTYGET, 1501, SlotOf(&IScriptControl::get_State)},
             {L"State", INVOKE_PROPERTYPUT, 1501, SlotOf(&IScriptControl::put_State)},
             {L"SitehWnd", INVOKE_PROPERTYPUT, 1502, SlotOf(&IScriptControl::put_SitehWnd)},
             {L"SitehWnd", INVOKE_PROPERTYGET, 1502, SlotOf(&IScriptControl::get_SitehWnd)},
             {L"Timeout", INVOKE_PROPERTYGET, 1503, SlotOf(&IScriptControl::get_Timeout)},
             {L"Timeout", INVOKE_PROPERTYPUT, 1503, SlotOf(&IScriptControl::put_Timeout)},
             {L"AllowUI", INVOKE_PROPERTYGET, 1504, SlotOf(&IScriptControl::get_AllowUI)},
             {L"AllowUI", INVOKE_PROPERTYPUT, 1504, SlotOf(&IScriptControl::put_AllowUI)},
             {L"UseSafeSubset", INVOKE_PROPERTYGET, 1505, SlotOf(&IScriptControl::get_UseSafeSubset)},
             {L"UseSafeSubset", INVOKE_PROPERTYPUT, 1505, SlotOf(&IScriptControl::put_UseSafeSubset)},
             {L"Modules", INVOKE_PROPERTYGET, 1506, SlotOf(&IScriptControl::get_Modules)},
             {L"Error", INVOKE_PROPERTYGET, 1507, SlotOf(&IScriptControl::get_Error)},
             {L"CodeObject", INVOKE_PROPERTYGET, 1000, SlotOf(&IScriptControl::get_CodeObject)},
             {L"Procedures", INVOKE_PROPERTYGET, 1001, SlotOf(&IScriptControl::get_Procedures)},
             {L"_AboutBox", INVOKE_FUNC, -552, SlotOf(&IScriptControl::AboutBox)},
             {L"AddObject", INVOKE_FUNC, 2500, SlotOf(&IScriptControl::AddObject)},
             {L"Reset", INVOKE_FUNC, 2501, SlotOf(&IScriptControl::Reset)},
             {L"AddCode", INVOKE_FUNC, 2000, SlotOf(&IScriptControl::AddCode)},
             {L"Eval", INVOKE_FUNC, 2001, SlotOf(&IScriptControl::Eval)},
             {L"ExecuteStatement", INVOKE_FUNC, 2002, SlotOf(&IScriptControl::ExecuteStatement)},
             {L"Run", INVOKE_FUNC, 2003, SlotOf(&IScriptControl::Run)}});
    Compare(*library.Get(), __uuidof(IScriptProcedureCollection),
            {{L"_NewEnum", INVOKE_PROPERTYGET, -4, SlotOf(&IScriptProcedureCollection::get_NewEnum)},
             {L"Item", INVOKE_PROPERTYGET, 0, SlotOf(&IScriptProcedureCollection::get_Item)},
             {L"Count", INVOKE_PROPERTYGET, 1, SlotOf(&IScriptProcedureCollection::get_Count)}});
    Compare(*library.Get(), __uuidof(IScriptProcedure),
            {{L"Name", INVOKE_PROPERTYGET, 0, SlotOf(&IScriptProcedure::get_Name)},
             {L"NumArgs", INVOKE_PROPERTYGET, 100, SlotOf(&IScriptProcedure::get_NumArgs)}});
    Compare(*library.Get(), __uuidof(IScriptError),
            {{L"Number", INVOKE_PROPERTYGET, 201, SlotOf(&IScriptError::get_Number)},
             {L"Source", INVOKE_PROPERTYGET, 202, SlotOf(&IScriptError::get_Source)},
             {L"Description", INVOKE_PROPERTYGET, 203, SlotOf(&IScriptError::get_Description)},
             {L"HelpFile", INVOKE_PROPERTYGET, 204, SlotOf(&IScriptError::get_HelpFile)},
             {L"HelpContext", INVOKE_PROPERTYGET, 205, SlotOf(&IScriptError::get_HelpContext)},
             {L"Text", INVOKE_PROPERTYGET, -517, SlotOf(&IScriptError::get_Text)},
             {L"Line", INVOKE_PROPERTYGET, 206, SlotOf(&IScriptError::get_Line)},
             {L"Column", INVOKE_PROPERTYGET, -529, SlotOf(&IScriptError::get_Column)}});
}

}  // namespace
