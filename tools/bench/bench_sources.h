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

}  // namespace hlyd::bench
