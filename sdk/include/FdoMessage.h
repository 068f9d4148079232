// The list of message numbers belongs to localised message catalogues. This SDK's messages are plain
// text, so the list is empty; the file exists because programs may include it by name.
#ifndef FDO_MESSAGE_H_
#define FDO_MESSAGE_H_
#endif  // FDO_MESSAGE_H_
