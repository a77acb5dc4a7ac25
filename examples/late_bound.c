/* A late-bound call from C: loads the component module, creates
 * Corvane.clsDataBOrderType through its class factory, calls QueryAll by
 * name with one of the library's collections, and prints each order type it
 * filled in, reading the collection and its entities by name as well.
 *
 *   corvane_late_bound [MODULE]     (default: libcorvane_component.so)
 *
 * The business database is the one CORVANE_CONNECT names
 * ("SERVER=127.0.0.1;PORT=3306;DATABASE=sales;UID=corvane;PWD=corvane"),
 * else the one of my.ini. */
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>

#include "corvane/automation.h"

/* UTF-16 to UTF-8 on standard output. */
static void PrintText(const OLECHAR* s, UINT n) {
  UINT i;
  for (i = 0; i < n; ++i) {
    unsigned long c = s[i];
    if (c >= 0xD800 && c < 0xDC00 && i + 1 < n && s[i + 1] >= 0xDC00 && s[i + 1] < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10) + (s[++i] - 0xDC00);
    }
    if (c < 0x80) {
      putchar((int)c);
    } else if (c < 0x800) {
      putchar((int)(0xC0 | (c >> 6)));
      putchar((int)(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
      putchar((int)(0xE0 | (c >> 12)));
      putchar((int)(0x80 | ((c >> 6) & 0x3F)));
      putchar((int)(0x80 | (c & 0x3F)));
    } else {
      putchar((int)(0xF0 | (c >> 18)));
      putchar((int)(0x80 | ((c >> 12) & 0x3F)));
      putchar((int)(0x80 | ((c >> 6) & 0x3F)));
      putchar((int)(0x80 | (c & 0x3F)));
    }
  }
}

/* A BSTR from ASCII text. */
static BSTR Ascii(const char* text) {
  OLECHAR buffer[64];
  UINT n = 0;
  while (text[n] != 0 && n < 63) {
    buffer[n] = (OLECHAR)text[n];
    ++n;
  }
  return SysAllocStringLen(buffer, n);
}

/* obj.name(args...) late-bound; args are given last one first, as Invoke
 * takes them. */
static HRESULT Call(IDispatch* obj, const char* name, WORD flags, VARIANT* args, UINT count,
                    VARIANT* result) {
  BSTR wide = Ascii(name);
  DISPID id = DISPID_UNKNOWN;
  DISPPARAMS params;
  EXCEPINFO info = {0};
  UINT bad = 0;
  HRESULT hr = obj->lpVtbl->GetIDsOfNames(obj, &IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &id);
  SysFreeString(wide);
  if (FAILED(hr)) return hr;
  params.rgvarg = args;
  params.rgdispidNamedArgs = NULL;
  params.cArgs = count;
  params.cNamedArgs = 0;
  hr = obj->lpVtbl->Invoke(obj, id, &IID_NULL, LOCALE_USER_DEFAULT, flags, &params, result,
                           &info, &bad);
  if (FAILED(hr) && info.bstrDescription != NULL) {
    fputs("refused: ", stderr);
    PrintText(info.bstrDescription, SysStringLen(info.bstrDescription));
    fputs("\n", stderr);
  }
  SysFreeString(info.bstrSource);
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrHelpFile);
  return hr;
}

int main(int argc, char** argv) {
  const char* path = argc > 1 ? argv[1] : "libcorvane_component.so";
  const char* connect = getenv("CORVANE_CONNECT");
  void* module;
  CorvaneDllGetClassObjectFn get_class_object;
  IClassFactory* factory = NULL;
  IDispatch* repository = NULL;
  IDispatch* collection = NULL;
  VARIANT arg, result;
  HRESULT hr;
  LONG count, i;

  if (connect != NULL) CorvaneSetConnectionString(connect);
  module = dlopen(path, RTLD_NOW);
  if (module == NULL) {
    fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  get_class_object = (CorvaneDllGetClassObjectFn)dlsym(module, "DllGetClassObject");
  hr = get_class_object(&CLSID_clsDataBOrderType, &IID_IClassFactory, (void**)&factory);
  if (FAILED(hr)) return fprintf(stderr, "DllGetClassObject: 0x%08X\n", (unsigned)hr), 1;
  hr = factory->lpVtbl->CreateInstance(factory, NULL, &IID_IDispatch, (void**)&repository);
  factory->lpVtbl->Release(factory);
  if (FAILED(hr)) return fprintf(stderr, "CreateInstance: 0x%08X\n", (unsigned)hr), 1;

  /* QueryAll(objColl) with a collection of the library. */
  CorvaneCreateCollection(&collection);
  VariantInit(&arg);
  arg.vt = VT_DISPATCH;
  arg.pdispVal = collection;
  VariantInit(&result);
  hr = Call(repository, "QueryAll", DISPATCH_METHOD, &arg, 1, &result);
  if (FAILED(hr)) return fprintf(stderr, "QueryAll: 0x%08X\n", (unsigned)hr), 1;
  printf("QueryAll gave %d\n", result.iVal);
  VariantClear(&result);

  /* objColl.Count, then objColl.Item(i).OrderType. */
  Call(collection, "Count", DISPATCH_PROPERTYGET, NULL, 0, &result);
  count = result.lVal;
  printf("%ld order type(s)\n", (long)count);
  for (i = 1; i <= count; ++i) {
    VARIANT index, item, text;
    VariantInit(&index);
    index.vt = VT_I4;
    index.lVal = i;
    VariantInit(&item);
    VariantInit(&text);
    Call(collection, "Item", DISPATCH_METHOD | DISPATCH_PROPERTYGET, &index, 1, &item);
    Call(item.pdispVal, "OrderType", DISPATCH_PROPERTYGET, NULL, 0, &text);
    printf("%ld: ", (long)i);
    PrintText(text.bstrVal, SysStringLen(text.bstrVal));
    printf("\n");
    VariantClear(&text);
    VariantClear(&item);
  }

  collection->lpVtbl->Release(collection);
  repository->lpVtbl->Release(repository);
  printf("DllCanUnloadNow: %s\n",
         ((CorvaneDllCanUnloadNowFn)dlsym(module, "DllCanUnloadNow"))() == S_OK ? "S_OK"
                                                                                   : "S_FALSE");
  return 0;
}
