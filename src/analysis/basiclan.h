#pragma once
// The language analysis: source model, keyword table, tokenizer, statements, record parsing,
// procedures and labels, file validation.
#include "analysis/basiclan_state.h"
#include "analysis/file_validation.h"
#include "analysis/keywords.h"
#include "analysis/record_parser.h"
#include "analysis/record_reader.h"
#include "analysis/source_file.h"
#include "analysis/source_model.h"
#include "analysis/statement_analysis.h"
#include "analysis/tokenizer.h"
