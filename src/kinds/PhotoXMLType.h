#pragma once

/// The delivery family: whose standard a PHOTO.XML follows. The host passes it in; a number of no
/// family is no error here, it recognises no file.
enum PhotoXMLType : int
{
    PhotoXMLMlit = 0,
    PhotoXMLKowan = 1,
    PhotoXMLMaff = 2,
    PhotoXMLNexco = 3
};

/// The outcome of reading the definitions and of the load.
enum PhotoXMLReadErr
{
    /// READITEM.XML doesn't exist.
    ReadErrNoItemFile = 0,
    /// PHOTO.XML can't be opened, or its DOCTYPE is none that is known for the family.
    ReadErrUnknownPhotoXml = 1,
    /// The load found no photograph.
    ReadErrNoPhotos = 2,
    /// The application's file name wasn't available, or READITEM.XML couldn't be read.
    ReadErrDefinition = 3,
    ReadErrNone = 4
};
