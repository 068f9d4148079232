// The kinds of class.
#ifndef FDO_SCHEMA_CLASS_TYPE_H_
#define FDO_SCHEMA_CLASS_TYPE_H_

enum FdoClassType {
  FdoClassType_Class = 0,
  FdoClassType_FeatureClass = 1,
  FdoClassType_NetworkClass = 2,
  FdoClassType_NetworkLayerClass = 3,
  FdoClassType_NetworkNodeClass = 4,
  FdoClassType_NetworkLinkClass = 5
};

#endif  // FDO_SCHEMA_CLASS_TYPE_H_
