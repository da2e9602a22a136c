<?xml version="1.0" encoding="UTF-8"?>
<!-- The facts that "tovi photos" tells of each photograph, a line each: photo index, title, value. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
<xsl:output method="text" encoding="UTF-8"/>
<xsl:param name="root"/>
<xsl:template match="/">
<xsl:for-each select="*/写真情報">
<xsl:variable name="index" select="position() - 1"/>
<xsl:value-of select="concat($index, '&#9;', $root, 'PIC/', 写真ファイル情報/写真ファイル名, '&#10;')"/>
<xsl:for-each select=".//*[not(*)]">
<xsl:value-of select="concat($index, '&#9;', name(), '&#9;', ., '&#10;')"/>
</xsl:for-each>
</xsl:for-each>
</xsl:template>
</xsl:stylesheet>
