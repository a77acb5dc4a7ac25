// The component's objects: one repository object behind its dual default
// interface, and the class factory. The vtable of a class is IDispatch's
// seven slots followed by the early-bound slots of its methods, built from
// the method table. The module counts living objects and factory locks so
// that DllCanUnloadNow can answer.
#ifndef CORVANE_COMPONENT_OBJECT_H_
#define CORVANE_COMPONENT_OBJECT_H_

#include <memory>

#include "corvane/automation.h"
#include "corvane/component/method_table.h"

namespace corvane::component {

// Creates the repository object of cls behind its default interface, with
// one reference. A failure of the repository's construction gives its
// number as the HRESULT when it is one, else E_FAIL.
HRESULT CreateObject(const ClassInfo& cls, REFIID riid, void** ppv);

// Creates the class factory of cls, with one reference.
HRESULT CreateFactory(const ClassInfo& cls, REFIID riid, void** ppv);

// The way every early-bound slot runs its method: on object's repository,
// through the late-bound call of the method table.
HRESULT InvokeSlot(IDispatch* object, CallFn call, VARIANT* const* args, VARIANT* result,
                   Refusal* refusal);

// True while an object or a factory lives, or a factory lock is held.
bool ModuleInUse();

}  // namespace corvane::component

#endif  // CORVANE_COMPONENT_OBJECT_H_
