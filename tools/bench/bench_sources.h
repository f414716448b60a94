#pragma once
// Generated Visual Basic source for the benchmarks, written to stay under the token limit.
#include <cstddef>
#include <string>

namespace hlyd::bench {

// A module of about `bytes`, commented as real code is, that stays under the token limit.
inline std::string commentedModule(std::size_t bytes) {
    std::string s = "Attribute VB_Name = \"Commented\"\r\nOption Explicit\r\n\r\n";
    for (int p = 0; s.size() < bytes; ++p) {
        std::string n = std::to_string(p);
        s += "' ------------------------------------------------------------------------------\r\n";
        s += "' UpdateCustomerBalance" + n + ": posts the day's receipts against the open invoices\r\n";
        s += "' of one customer, oldest first, and returns what is left over for the next run.\r\n";
        s += "' ------------------------------------------------------------------------------\r\n";
        s += "Public Function UpdateCustomerBalance" + n + "(ByVal customerNumber As Long) As Currency\r\n";
        s += "    Dim remainingReceiptAmount As Currency ' what is still to be posted\r\n";
        s += "    remainingReceiptAmount = ReceiptsOfTheDay(customerNumber)\r\n";
        s += "    Do While remainingReceiptAmount > 0 And HasOpenInvoice(customerNumber)\r\n";
        s += "        remainingReceiptAmount = PostAgainstOldestInvoice(customerNumber, remainingReceiptAmount)\r\n";
        s += "    Loop\r\n";
        s += "    UpdateCustomerBalance" + n + " = remainingReceiptAmount\r\n";
        s += "End Function\r\n\r\n";
    }
    return s;
}

// A module of about `bytes` shaped as real code is: about 98 tokens a KB, as in a large module of
// image routines (the commented module above has about 63), a fifth of the lines comments and a
// fifth blank, short names, many parentheses and operators, nested blocks indented by four.
inline std::string realShapedModule(std::size_t bytes) {
    std::string s = "Attribute VB_Name = \"RealShaped\"\r\nOption Explicit\r\n\r\n";
    for (int p = 0; s.size() < bytes; ++p) {
        std::string n = std::to_string(p);
        s += "'Given a source image and a palette, remap every pixel of the image to its nearest palette entry.\r\n";
        s += "' The palette is searched through a tree, so that large palettes cost little more than small ones;\r\n";
        s += "' the caller owns both images and must have sized the destination to match the source beforehand.\r\n";
        s += "Public Function RemapPixelsToPalette" + n +
             "(ByRef sourceImage As pdDIB, sourcePalette() As RGBQuad) As Long\r\n";
        s += "    \r\n";
        s += "    Dim pixelX As Long, pixelY As Long, finalX As Long, finalY As Long\r\n";
        s += "    Dim redValue As Long, greenValue As Long, blueValue As Long\r\n";
        s += "    Dim lastColorSeen As Long: lastColorSeen = -1\r\n";
        s += "    \r\n";
        s += "    'To avoid division on the inner loop, build a lookup table for the x indices\r\n";
        s += "    'Note that the table is one entry per pixel, not per byte; the loop below steps by four bytes,\r\n";
        s += "    ' which is one pixel of the 32-bpp image, and an image of another depth must be converted first\r\n";
        s += "    ' (see the conversion routines near the top of this module, which also handle premultiplied alpha).\r\n";
        s += "    ReDim lookupTableX(0 To finalX) As Long\r\n";
        s += "    For pixelX = 0 To finalX Step 4\r\n";
        s += "        lookupTableX(pixelX) = pixelX \\ 4\r\n";
        s += "    Next pixelX\r\n";
        s += "    \r\n";
        s += "    For pixelY = 0 To finalY\r\n";
        s += "        sourceImage.WrapArrayAroundScanline sourcePixels, tempSafeArray, pixelY\r\n";
        s += "        For pixelX = 0 To finalX Step 4\r\n";
        s += "            blueValue = sourcePixels(pixelX)\r\n";
        s += "            greenValue = sourcePixels(pixelX + 1)\r\n";
        s += "            \r\n";
        s += "            'If this pixel matches the last pixel we tested, reuse our previous match results\r\n";
        s += "            If (RGB(redValue, greenValue, blueValue) <> lastColorSeen) Then\r\n";
        s += "                lastColorSeen = RGB(redValue, greenValue, blueValue)\r\n";
        s += "                destinationPixels(lookupTableX(pixelX), pixelY) = paletteTree.GetNearestIndex(lastColorSeen)\r\n";
        s += "            Else\r\n";
        s += "                Debug.Print \"Same color as before at \" & pixelX & \", \" & pixelY\r\n";
        s += "            End If\r\n";
        s += "            \r\n";
        s += "        Next pixelX\r\n";
        s += "    Next pixelY\r\n";
        s += "    \r\n";
        s += "    sourceImage.UnwrapArrayFromDIB sourcePixels\r\n";
        s += "    RemapPixelsToPalette" + n + " = UBound(sourcePalette) + 1\r\n";
        s += "    \r\n";
        s += "End Function\r\n\r\n";
    }
    return s;
}

}  // namespace hlyd::bench
