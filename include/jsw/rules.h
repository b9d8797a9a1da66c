/**
 * @file rules.h
 * Interface of the rules engine module ("<id>reng.dll"), which decides which billboard a job shows.
 * The module is in the folder "DllPath" of the host's settings; the value "RulesEngine" may name
 * another file.
 *
 * Order of calls for one job, all on one worker thread:
 *
 *     InitializeEngine
 *     IsMoreRules, EvaluateRule, IsHistoryChecked    repeated until no rule remains or a result has
 *                                                    led to a billboard
 *     UpdateSettings                                 what was shown; not after a failed start
 *     UnInitialize
 *
 * The number of rules is not limited; after every hundred results the library pauses for 10
 * milliseconds. After the third C++ exception in a run the library asks for no more rules.
 *
 * Memory: InitializeEngine gets an allocation function; the text that EvaluateRule returns must be
 * allocated with it, and jsw.dll frees it. Arguments are valid only during the call: copy what is
 * needed later.
 */
#ifndef JSW_RULES_H
#define JSW_RULES_H

#include <jsw/module.h>

/* Function types of the entry points. */
/**
 * Starts the engine for a job. Returns 0 if it cannot work; then no rule is evaluated. totalPages
 * is the driver's value unchanged, -1 or -2 if unknown. Unknown ink levels are negative.
 */
typedef JswBool JswRulesInitializeEngine(JswAllocate allocate, const InkInfo* inkInfo,
                                         const char* friendlyName, const char* jobName,
                                         int32_t totalPages, int32_t totalCopies);
/** Gets what was shown: the ink billboard's cartridges (or "") and the kind of billboard. */
typedef void JswRulesUpdateSettings(const char* carts, JswBool inkBillboard,
                                    JswBool specialBillboard);
/** The next rule's result: a category or billboard id; null or "" if the rule does not apply. */
typedef char* JswRulesEvaluateRule(void);
/** IsMoreRules: rules remain. IsHistoryChecked: the last result must not repeat the history. */
typedef JswBool JswRulesQuestion(void);
typedef void JswRulesUnInitialize(void);

/** The entry points. */
#define JSW_RULES_ENTRY_POINTS(X)                 \
    X(InitializeEngine, JswRulesInitializeEngine) \
    X(UpdateSettings, JswRulesUpdateSettings)     \
    X(EvaluateRule, JswRulesEvaluateRule)         \
    X(IsMoreRules, JswRulesQuestion)              \
    X(IsHistoryChecked, JswRulesQuestion)         \
    X(UnInitialize, JswRulesUnInitialize)

/** Makes the linker report entry points that are not defined; see module.h. */
#define JSW_RULES_REQUIRE_ENTRY_POINTS JSW_MODULE_REQUIRE(Rules, JSW_RULES_ENTRY_POINTS)

#endif /* JSW_RULES_H */
