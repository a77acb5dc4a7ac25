/* The binary boundary of Corvane: the types of the COM and OLE Automation
 * binary standard on LP64 Linux (x86-64 System V calling convention, no
 * stdcall), the identifiers of the library, its classes and their default
 * interfaces, the allocation functions a client needs (exported from
 * libcorvane.so, memory from the C heap), and the four exports of the
 * component module libcorvane_component.so. Usable from C and C++.
 *
 * The default interface of class X is _X, dual: the seven slots of IDispatch,
 * then the class's methods in their fixed order, each returning HRESULT with
 * the method's result as a final out parameter. Entities and collections are
 * reached late-bound (IDispatch); CorvaneCreateEntity and
 * CorvaneCreateCollection make the library's own. */
#ifndef CORVANE_AUTOMATION_H_
#define CORVANE_AUTOMATION_H_

#include <stddef.h>
#include <stdint.h>

#include "corvane/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Scalars ------------------------------------------------------------ */

typedef int32_t HRESULT;
typedef int32_t SCODE;
typedef int32_t LONG;
typedef uint32_t ULONG;
typedef int32_t INT;
typedef uint32_t UINT;
typedef int32_t BOOL;
typedef uint16_t WORD;
typedef uint32_t DWORD;
typedef uint16_t USHORT;
typedef uint8_t BYTE;
typedef int16_t SHORT;
typedef int64_t LONGLONG;
typedef uint64_t ULONGLONG;
typedef uint32_t LCID;
typedef int32_t DISPID;
typedef int32_t MEMBERID;
typedef uint16_t VARTYPE;
typedef int16_t VARIANT_BOOL;
typedef double DATE;
typedef void* PVOID;

#ifdef __cplusplus
typedef char16_t OLECHAR;
#else
typedef uint16_t OLECHAR; /* the same 16-bit UTF-16 code unit as char16_t */
#endif
typedef OLECHAR* LPOLESTR;
typedef const OLECHAR* LPCOLESTR;
/* A BSTR points at the first character; the 4-byte length in bytes (not
 * counting the terminating zero) stands just before it. */
typedef OLECHAR* BSTR;

#define VARIANT_TRUE ((VARIANT_BOOL)-1)
#define VARIANT_FALSE ((VARIANT_BOOL)0)

/* ---- Identifiers -------------------------------------------------------- */

typedef struct GUID {
  uint32_t Data1;
  uint16_t Data2;
  uint16_t Data3;
  uint8_t Data4[8];
} GUID;
typedef GUID IID;
typedef GUID CLSID;
#ifdef __cplusplus
typedef const GUID& REFGUID;
typedef const IID& REFIID;
typedef const CLSID& REFCLSID;
#else
typedef const GUID* REFGUID;
typedef const IID* REFIID;
typedef const CLSID* REFCLSID;
#endif

static inline int CorvaneGuidEqual(const GUID* a, const GUID* b) {
  int i;
  if (a->Data1 != b->Data1 || a->Data2 != b->Data2 || a->Data3 != b->Data3) return 0;
  for (i = 0; i < 8; ++i) {
    if (a->Data4[i] != b->Data4[i]) return 0;
  }
  return 1;
}

#ifdef __cplusplus
#define CORVANE_GUID_CONST(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
  inline constexpr GUID name = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}
#else
#define CORVANE_GUID_CONST(name, l, w1, w2, b1, b2, b3, b4, b5, b6, b7, b8) \
  static const GUID name = {l, w1, w2, {b1, b2, b3, b4, b5, b6, b7, b8}}
#endif

/* The standard interfaces. */
CORVANE_GUID_CONST(IID_NULL, 0x00000000, 0x0000, 0x0000, 0, 0, 0, 0, 0, 0, 0, 0);
CORVANE_GUID_CONST(IID_IUnknown, 0x00000000, 0x0000, 0x0000, 0xc0, 0, 0, 0, 0, 0, 0, 0x46);
CORVANE_GUID_CONST(IID_IClassFactory, 0x00000001, 0x0000, 0x0000, 0xc0, 0, 0, 0, 0, 0, 0, 0x46);
CORVANE_GUID_CONST(IID_IDispatch, 0x00020400, 0x0000, 0x0000, 0xc0, 0, 0, 0, 0, 0, 0, 0x46);

/* Corvane's library, classes and default interfaces: fixed for all versions.
 * The class of name "Corvane.<class>" is CLSID_<class>; its default
 * interface _<class> is IID__<class>. */
CORVANE_GUID_CONST(LIBID_Corvane, 0xcad76fe1, 0xdbef, 0x5d9b, 0xad, 0xc5, 0x56, 0x4b, 0x22, 0x45, 0x08, 0x56); /* {CAD76FE1-DBEF-5D9B-ADC5-564B22450856} */
CORVANE_GUID_CONST(CLSID_clsDataBOrderType, 0xf2cdf3a6, 0x2dee, 0x5a35, 0xb3, 0x1e, 0xa5, 0x8e, 0x0e, 0x18, 0xbd, 0xe4); /* {F2CDF3A6-2DEE-5A35-B31E-A58E0E18BDE4} */
CORVANE_GUID_CONST(IID__clsDataBOrderType, 0x1a3a45f6, 0x5abe, 0x5b00, 0x82, 0xba, 0xd1, 0x09, 0x37, 0xb0, 0xab, 0xe1); /* {1A3A45F6-5ABE-5B00-82BA-D10937B0ABE1} */
CORVANE_GUID_CONST(CLSID_clsDataBOrderh, 0xba99dee8, 0xf3f2, 0x5a78, 0x83, 0xc8, 0x93, 0xcc, 0x26, 0xf9, 0x32, 0x5b); /* {BA99DEE8-F3F2-5A78-83C8-93CC26F9325B} */
CORVANE_GUID_CONST(IID__clsDataBOrderh, 0x3fbc9da6, 0x24c9, 0x5c7d, 0xb0, 0xdd, 0x26, 0xb4, 0x41, 0xec, 0x40, 0x98); /* {3FBC9DA6-24C9-5C7D-B0DD-26B441EC4098} */
CORVANE_GUID_CONST(CLSID_clsDataBOrderi, 0x32ef772e, 0xd83b, 0x5142, 0xbd, 0xa6, 0x7a, 0x98, 0xe9, 0xf7, 0xe9, 0x22); /* {32EF772E-D83B-5142-BDA6-7A98E9F7E922} */
CORVANE_GUID_CONST(IID__clsDataBOrderi, 0xef0477b4, 0x78df, 0x5061, 0x80, 0xa8, 0xce, 0x95, 0x12, 0x53, 0x3e, 0xba); /* {EF0477B4-78DF-5061-80A8-CE9512533EBA} */
CORVANE_GUID_CONST(CLSID_clsDataBOrdChange, 0x2f3db551, 0xc9ae, 0x5bfb, 0x8a, 0x6b, 0xc1, 0xd5, 0x48, 0x98, 0xf1, 0xa0); /* {2F3DB551-C9AE-5BFB-8A6B-C1D54898F1A0} */
CORVANE_GUID_CONST(IID__clsDataBOrdChange, 0x46a6d069, 0xf4aa, 0x5d29, 0x9e, 0xec, 0xe8, 0x97, 0x03, 0x85, 0x82, 0x4d); /* {46A6D069-F4AA-5D29-9EEC-E8970385824D} */
CORVANE_GUID_CONST(CLSID_clsDataBPriceh, 0x86e82447, 0x1a30, 0x5955, 0xa2, 0x76, 0x8d, 0x1f, 0xb3, 0x44, 0x87, 0x9c); /* {86E82447-1A30-5955-A276-8D1FB344879C} */
CORVANE_GUID_CONST(IID__clsDataBPriceh, 0x4cc831b9, 0x6839, 0x54c1, 0x87, 0x38, 0xcd, 0xb8, 0x2f, 0xfd, 0xdd, 0x2e); /* {4CC831B9-6839-54C1-8738-CDB82FFDDD2E} */
CORVANE_GUID_CONST(CLSID_clsDataBPricei, 0x78dcdab8, 0x052b, 0x5039, 0x9c, 0x85, 0x2e, 0x32, 0xd3, 0xf3, 0xc1, 0x7d); /* {78DCDAB8-052B-5039-9C85-2E32D3F3C17D} */
CORVANE_GUID_CONST(IID__clsDataBPricei, 0xe01c3f9c, 0x71a1, 0x5215, 0x97, 0xc8, 0x83, 0xb3, 0x64, 0xdf, 0x35, 0x7b); /* {E01C3F9C-71A1-5215-97C8-83B364DF357B} */
CORVANE_GUID_CONST(CLSID_clsDataBPriceAttach, 0x049a6c56, 0x879d, 0x58f0, 0xad, 0xf3, 0x29, 0xcf, 0x9e, 0x50, 0x8e, 0xbb); /* {049A6C56-879D-58F0-ADF3-29CF9E508EBB} */
CORVANE_GUID_CONST(IID__clsDataBPriceAttach, 0x8ede2fa6, 0x93f7, 0x5c27, 0x82, 0x92, 0xd1, 0x94, 0xa1, 0x31, 0x54, 0x97); /* {8EDE2FA6-93F7-5C27-8292-D194A1315497} */
CORVANE_GUID_CONST(CLSID_clsDataBOutMakeh, 0xd0ca6572, 0xbd96, 0x562e, 0xa8, 0x44, 0xe5, 0xed, 0x05, 0x40, 0x65, 0x02); /* {D0CA6572-BD96-562E-A844-E5ED05406502} */
CORVANE_GUID_CONST(IID__clsDataBOutMakeh, 0x5cb5f1ff, 0x31f1, 0x5c10, 0xb3, 0x96, 0x05, 0x10, 0x80, 0x28, 0xb9, 0xaf); /* {5CB5F1FF-31F1-5C10-B396-05108028B9AF} */
CORVANE_GUID_CONST(CLSID_clsDataBOutMakei, 0xf02134c7, 0x9d44, 0x5877, 0xba, 0x9d, 0x3b, 0x6a, 0x49, 0xa5, 0x2e, 0x77); /* {F02134C7-9D44-5877-BA9D-3B6A49A52E77} */
CORVANE_GUID_CONST(IID__clsDataBOutMakei, 0x37f5b000, 0x7865, 0x5487, 0xbb, 0xc5, 0x0a, 0x64, 0x79, 0xaa, 0xf4, 0x79); /* {37F5B000-7865-5487-BBC5-0A6479AAF479} */
CORVANE_GUID_CONST(CLSID_clsDataBCosth, 0xca05c62f, 0xfe91, 0x5d08, 0x84, 0xa6, 0xe0, 0x1d, 0x85, 0xed, 0xd5, 0xa0); /* {CA05C62F-FE91-5D08-84A6-E01D85EDD5A0} */
CORVANE_GUID_CONST(IID__clsDataBCosth, 0x5bd4037f, 0xe6b3, 0x5830, 0x97, 0xfb, 0x9a, 0x32, 0xce, 0xa6, 0x31, 0xf2); /* {5BD4037F-E6B3-5830-97FB-9A32CEA631F2} */
CORVANE_GUID_CONST(CLSID_clsDataBCosti, 0xfda6761a, 0xcc1c, 0x5fc1, 0xab, 0x91, 0xc7, 0xdd, 0x00, 0x05, 0xa8, 0xf9); /* {FDA6761A-CC1C-5FC1-AB91-C7DD0005A8F9} */
CORVANE_GUID_CONST(IID__clsDataBCosti, 0xa94ddd25, 0x7016, 0x53fd, 0xb0, 0xaf, 0xdf, 0x25, 0x1f, 0x61, 0x8b, 0x7b); /* {A94DDD25-7016-53FD-B0AF-DF251F618B7B} */
CORVANE_GUID_CONST(CLSID_clsDataBCosts, 0x9ee02268, 0x252f, 0x5afe, 0x99, 0x72, 0x90, 0xb3, 0x75, 0xbe, 0xd6, 0x37); /* {9EE02268-252F-5AFE-9972-90B375BED637} */
CORVANE_GUID_CONST(IID__clsDataBCosts, 0x2606dcba, 0xfcaa, 0x51e1, 0x87, 0x73, 0x8c, 0x3c, 0xa5, 0x96, 0x81, 0xd6); /* {2606DCBA-FCAA-51E1-8773-8C3CA59681D6} */
CORVANE_GUID_CONST(CLSID_clsDataBWageSort, 0xa8d5df21, 0x0dc0, 0x5e17, 0xb0, 0x15, 0xd5, 0xf4, 0xe0, 0xc2, 0x98, 0x30); /* {A8D5DF21-0DC0-5E17-B015-D5F4E0C29830} */
CORVANE_GUID_CONST(IID__clsDataBWageSort, 0x861d4079, 0xe45e, 0x5444, 0xbf, 0xe8, 0x56, 0x10, 0xb6, 0x11, 0x63, 0x6f); /* {861D4079-E45E-5444-BFE8-5610B611636F} */
CORVANE_GUID_CONST(CLSID_clsDataBCustom, 0xc340576c, 0xd8c4, 0x5969, 0x9a, 0xab, 0xb2, 0x80, 0x5f, 0x2d, 0x49, 0x6d); /* {C340576C-D8C4-5969-9AAB-B2805F2D496D} */
CORVANE_GUID_CONST(IID__clsDataBCustom, 0xdbf0bae1, 0x568d, 0x56d6, 0x8e, 0x03, 0x76, 0xa5, 0x34, 0x8c, 0xfd, 0xe4); /* {DBF0BAE1-568D-56D6-8E03-76A5348CFDE4} */
CORVANE_GUID_CONST(CLSID_clsDataBSaler, 0x710886de, 0xdf7c, 0x5507, 0xbe, 0x00, 0x5c, 0xf0, 0x03, 0xd7, 0x8e, 0x8e); /* {710886DE-DF7C-5507-BE00-5CF003D78E8E} */
CORVANE_GUID_CONST(IID__clsDataBSaler, 0xcde84fc2, 0xfe17, 0x5b1c, 0x91, 0xc2, 0x0e, 0x4f, 0x28, 0x41, 0x97, 0x82); /* {CDE84FC2-FE17-5B1C-91C2-0E4F28419782} */
CORVANE_GUID_CONST(CLSID_clsDataBCStudy, 0x67bfaf17, 0x782b, 0x5a6b, 0x9f, 0xf4, 0xfc, 0x78, 0xe1, 0xc0, 0x44, 0xe9); /* {67BFAF17-782B-5A6B-9FF4-FC78E1C044E9} */
CORVANE_GUID_CONST(IID__clsDataBCStudy, 0xf00a051e, 0xb906, 0x5dfb, 0xa0, 0x4d, 0x04, 0xe9, 0x02, 0x70, 0xb4, 0x58); /* {F00A051E-B906-5DFB-A04D-04E90270B458} */
CORVANE_GUID_CONST(CLSID_clsDataBSample, 0xbb0f274e, 0x869c, 0x5871, 0x94, 0x7b, 0x68, 0x79, 0xae, 0x40, 0xb5, 0xdc); /* {BB0F274E-869C-5871-947B-6879AE40B5DC} */
CORVANE_GUID_CONST(IID__clsDataBSample, 0xe2cfef45, 0x8a63, 0x5247, 0xbd, 0x27, 0x4d, 0xb8, 0x6a, 0x9e, 0x5b, 0xc1); /* {E2CFEF45-8A63-5247-BD27-4DB86A9E5BC1} */

/* ---- Result codes ------------------------------------------------------- */

#define S_OK ((HRESULT)0)
#define S_FALSE ((HRESULT)1)
#define E_NOTIMPL ((HRESULT)0x80004001L)
#define E_NOINTERFACE ((HRESULT)0x80004002L)
#define E_POINTER ((HRESULT)0x80004003L)
#define E_ABORT ((HRESULT)0x80004004L)
#define E_FAIL ((HRESULT)0x80004005L)
#define E_UNEXPECTED ((HRESULT)0x8000FFFFL)
#define E_OUTOFMEMORY ((HRESULT)0x8007000EL)
#define E_INVALIDARG ((HRESULT)0x80070057L)
#define CLASS_E_NOAGGREGATION ((HRESULT)0x80040110L)
#define CLASS_E_CLASSNOTAVAILABLE ((HRESULT)0x80040111L)
#define SELFREG_E_TYPELIB ((HRESULT)0x80040200L)
#define SELFREG_E_CLASS ((HRESULT)0x80040201L)
#define DISP_E_UNKNOWNINTERFACE ((HRESULT)0x80020001L)
#define DISP_E_MEMBERNOTFOUND ((HRESULT)0x80020003L)
#define DISP_E_PARAMNOTFOUND ((HRESULT)0x80020004L)
#define DISP_E_TYPEMISMATCH ((HRESULT)0x80020005L)
#define DISP_E_UNKNOWNNAME ((HRESULT)0x80020006L)
#define DISP_E_NONAMEDARGS ((HRESULT)0x80020007L)
#define DISP_E_BADVARTYPE ((HRESULT)0x80020008L)
#define DISP_E_EXCEPTION ((HRESULT)0x80020009L)
#define DISP_E_OVERFLOW ((HRESULT)0x8002000AL)
#define DISP_E_BADINDEX ((HRESULT)0x8002000BL)
#define DISP_E_ARRAYISLOCKED ((HRESULT)0x8002000DL)
#define DISP_E_BADPARAMCOUNT ((HRESULT)0x8002000EL)
#define DISP_E_PARAMNOTOPTIONAL ((HRESULT)0x8002000FL)
#define TYPE_E_ELEMENTNOTFOUND ((HRESULT)0x8002802BL)
#define SUCCEEDED(hr) (((HRESULT)(hr)) >= 0)
#define FAILED(hr) (((HRESULT)(hr)) < 0)

/* ---- Dispatch ----------------------------------------------------------- */

#define DISPATCH_METHOD 0x1
#define DISPATCH_PROPERTYGET 0x2
#define DISPATCH_PROPERTYPUT 0x4
#define DISPATCH_PROPERTYPUTREF 0x8

#define DISPID_UNKNOWN ((DISPID)-1)
#define DISPID_VALUE ((DISPID)0)
#define DISPID_PROPERTYPUT ((DISPID)-3)
#define DISPID_NEWENUM ((DISPID)-4)

#define LOCALE_USER_DEFAULT ((LCID)0x0400)
#define LOCALE_SYSTEM_DEFAULT ((LCID)0x0800)

/* ---- VARIANT ------------------------------------------------------------ */

enum VARENUM {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000,
  VT_TYPEMASK = 0x0fff
};

typedef struct IUnknown IUnknown;
typedef struct IDispatch IDispatch;
typedef struct IClassFactory IClassFactory;
typedef struct ITypeInfo ITypeInfo; /* not provided: GetTypeInfo gives none */
typedef struct IRecordInfo IRecordInfo;

typedef struct SAFEARRAYBOUND {
  ULONG cElements;
  LONG lLbound;
} SAFEARRAYBOUND;

typedef struct SAFEARRAY {
  USHORT cDims;
  USHORT fFeatures;
  ULONG cbElements;
  ULONG cLocks;
  PVOID pvData;
  SAFEARRAYBOUND rgsabound[1];
} SAFEARRAY;

#define FADF_BSTR 0x0100
#define FADF_VARIANT 0x0800
#define FADF_HAVEVARTYPE 0x0080
#define FADF_UNKNOWN 0x0200
#define FADF_DISPATCH 0x0400

typedef struct CY {
  LONGLONG int64;
} CY;

typedef struct VARIANT VARIANT;
struct VARIANT {
  VARTYPE vt;
  WORD wReserved1;
  WORD wReserved2;
  WORD wReserved3;
  union {
    LONGLONG llVal;
    LONG lVal;
    BYTE bVal;
    SHORT iVal;
    float fltVal;
    double dblVal;
    VARIANT_BOOL boolVal;
    SCODE scode;
    CY cyVal;
    DATE date;
    BSTR bstrVal;
    IUnknown* punkVal;
    IDispatch* pdispVal;
    SAFEARRAY* parray;
    BYTE* pbVal;
    SHORT* piVal;
    LONG* plVal;
    double* pdblVal;
    VARIANT_BOOL* pboolVal;
    DATE* pdate;
    BSTR* pbstrVal;
    IDispatch** ppdispVal;
    SAFEARRAY** pparray;
    VARIANT* pvarVal;
    PVOID byref;
    struct {
      PVOID pvRecord;
      IRecordInfo* pRecInfo;
    } brecVal;
  };
};
typedef VARIANT VARIANTARG;

typedef struct DISPPARAMS {
  VARIANTARG* rgvarg;        /* the arguments, last one first */
  DISPID* rgdispidNamedArgs;
  UINT cArgs;
  UINT cNamedArgs;
} DISPPARAMS;

typedef struct EXCEPINFO {
  WORD wCode;
  WORD wReserved;
  BSTR bstrSource;
  BSTR bstrDescription;
  BSTR bstrHelpFile;
  DWORD dwHelpContext;
  PVOID pvReserved;
  HRESULT (*pfnDeferredFillIn)(struct EXCEPINFO*);
  SCODE scode;
} EXCEPINFO;

/* ---- Interfaces --------------------------------------------------------- */

#ifdef __cplusplus
}  /* extern "C" */

/* In C++ the interfaces are abstract classes with no destructor in the
 * vtable, so their layout is the C one below. */
struct IUnknown {
  virtual HRESULT QueryInterface(REFIID riid, void** ppvObject) = 0;
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;
};

struct IClassFactory : IUnknown {
  virtual HRESULT CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObject) = 0;
  virtual HRESULT LockServer(BOOL fLock) = 0;
};

struct IDispatch : IUnknown {
  virtual HRESULT GetTypeInfoCount(UINT* pctinfo) = 0;
  virtual HRESULT GetTypeInfo(UINT iTInfo, LCID lcid, ITypeInfo** ppTInfo) = 0;
  virtual HRESULT GetIDsOfNames(REFIID riid, LPOLESTR* rgszNames, UINT cNames, LCID lcid,
                                DISPID* rgDispId) = 0;
  virtual HRESULT Invoke(DISPID dispIdMember, REFIID riid, LCID lcid, WORD wFlags,
                         DISPPARAMS* pDispParams, VARIANT* pVarResult, EXCEPINFO* pExcepInfo,
                         UINT* puArgErr) = 0;
};

extern "C" {
#else

typedef struct IUnknownVtbl {
  HRESULT (*QueryInterface)(IUnknown* This, REFIID riid, void** ppvObject);
  ULONG (*AddRef)(IUnknown* This);
  ULONG (*Release)(IUnknown* This);
} IUnknownVtbl;
struct IUnknown {
  const IUnknownVtbl* lpVtbl;
};

typedef struct IClassFactoryVtbl {
  HRESULT (*QueryInterface)(IClassFactory* This, REFIID riid, void** ppvObject);
  ULONG (*AddRef)(IClassFactory* This);
  ULONG (*Release)(IClassFactory* This);
  HRESULT (*CreateInstance)(IClassFactory* This, IUnknown* pUnkOuter, REFIID riid,
                            void** ppvObject);
  HRESULT (*LockServer)(IClassFactory* This, BOOL fLock);
} IClassFactoryVtbl;
struct IClassFactory {
  const IClassFactoryVtbl* lpVtbl;
};

typedef struct IDispatchVtbl {
  HRESULT (*QueryInterface)(IDispatch* This, REFIID riid, void** ppvObject);
  ULONG (*AddRef)(IDispatch* This);
  ULONG (*Release)(IDispatch* This);
  HRESULT (*GetTypeInfoCount)(IDispatch* This, UINT* pctinfo);
  HRESULT (*GetTypeInfo)(IDispatch* This, UINT iTInfo, LCID lcid, ITypeInfo** ppTInfo);
  HRESULT (*GetIDsOfNames)(IDispatch* This, REFIID riid, LPOLESTR* rgszNames, UINT cNames,
                           LCID lcid, DISPID* rgDispId);
  HRESULT (*Invoke)(IDispatch* This, DISPID dispIdMember, REFIID riid, LCID lcid, WORD wFlags,
                    DISPPARAMS* pDispParams, VARIANT* pVarResult, EXCEPINFO* pExcepInfo,
                    UINT* puArgErr);
} IDispatchVtbl;
struct IDispatch {
  const IDispatchVtbl* lpVtbl;
};

#endif

/* ---- Allocation (libcorvane.so) ----------------------------------------- */

CORVANE_EXPORT BSTR SysAllocString(const OLECHAR* psz);
CORVANE_EXPORT BSTR SysAllocStringLen(const OLECHAR* strIn, UINT ui);
CORVANE_EXPORT void SysFreeString(BSTR bstrString);
CORVANE_EXPORT UINT SysStringLen(BSTR pbstr);
CORVANE_EXPORT UINT SysStringByteLen(BSTR bstr);

CORVANE_EXPORT void VariantInit(VARIANTARG* pvarg);
CORVANE_EXPORT HRESULT VariantClear(VARIANTARG* pvarg);
CORVANE_EXPORT HRESULT VariantCopy(VARIANTARG* pvargDest, const VARIANTARG* pvargSrc);
/* As VariantCopy, but a by-reference source is copied as the value it
 * points at. */
CORVANE_EXPORT HRESULT VariantCopyInd(VARIANT* pvarDest, const VARIANTARG* pvargSrc);

CORVANE_EXPORT SAFEARRAY* SafeArrayCreateVector(VARTYPE vt, LONG lLbound, ULONG cElements);
CORVANE_EXPORT HRESULT SafeArrayDestroy(SAFEARRAY* psa);
CORVANE_EXPORT HRESULT SafeArrayAccessData(SAFEARRAY* psa, void** ppvData);
CORVANE_EXPORT HRESULT SafeArrayUnaccessData(SAFEARRAY* psa);
CORVANE_EXPORT HRESULT SafeArrayGetLBound(SAFEARRAY* psa, UINT nDim, LONG* plLbound);
CORVANE_EXPORT HRESULT SafeArrayGetUBound(SAFEARRAY* psa, UINT nDim, LONG* plUbound);
/* The element type an array was created with. */
CORVANE_EXPORT HRESULT SafeArrayGetVartype(SAFEARRAY* psa, VARTYPE* pvt);
/* A deep copy: text copied, objects added a reference, variants copied. */
CORVANE_EXPORT HRESULT SafeArrayCopy(SAFEARRAY* psa, SAFEARRAY** ppsaOut);

/* The library's own entity objects and collection (libcorvane.so). name is
 * the entity class's name in UTF-8, "clsEntBOrderh" say; an unknown name
 * gives CLASS_E_CLASSNOTAVAILABLE. The new object has one reference, the
 * caller's. The collection has Add(item), Count, Item(index from 1) and
 * Remove(index). */
CORVANE_EXPORT HRESULT CorvaneCreateEntity(const char* name, IDispatch** ppEntity);
CORVANE_EXPORT HRESULT CorvaneCreateCollection(IDispatch** ppCollection);

/* ---- Host configuration for C programs (libcorvane.so) ------------------ */

/* The connection text of the business database, UTF-8: items "SERVER=",
 * "PORT=", "SOCKET=", "DATABASE=", "UID=", "PWD=" separated by ";". Until it
 * is set, or after an empty or null text, sessions read my.ini. The same
 * setting as corvane::SetSessionConnectionString in C++. */
CORVANE_EXPORT void CorvaneSetConnectionString(const char* text);

/* ---- The component module (libcorvane_component.so) --------------------- */

/* The module exports exactly these four, with C linkage. */
HRESULT DllGetClassObject(REFCLSID rclsid, REFIID riid, void** ppv);
HRESULT DllCanUnloadNow(void);
HRESULT DllRegisterServer(void);
HRESULT DllUnregisterServer(void);

typedef HRESULT (*CorvaneDllGetClassObjectFn)(REFCLSID rclsid, REFIID riid, void** ppv);
typedef HRESULT (*CorvaneDllCanUnloadNowFn)(void);
typedef HRESULT (*CorvaneDllRegisterServerFn)(void);
typedef HRESULT (*CorvaneDllUnregisterServerFn)(void);

#ifdef __cplusplus
}  /* extern "C" */
#endif

#endif /* CORVANE_AUTOMATION_H_ */
