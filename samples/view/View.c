/*
 * A minimal job window: one line of text and a progress bar. view.h describes what else a window
 * may do; the product's window is in window/view.
 *
 * The library calls on the driver's threads, which may never handle a message. So the window has a
 * thread of its own; the entry points only store the new data and post a message.
 */
#include <jsw/view.h>

#include <windows.h>

#include <commctrl.h>
#include <process.h>
#include <stdio.h>

JSW_VIEW_ENTRY_POINTS(JSW_MODULE_DECLARE)

enum { NEWS = WM_APP, END, LINE = 1, BAR = 2 };

/* The driver's data about the job. */
struct Job {
    char name[260];
    unsigned page, pages, seconds;
    int isShown;
    JswViewEventCallback tell;
};

static SRWLOCK lock = SRWLOCK_INIT;
static struct Job job; /* under the lock, like the window */
static HWND window;
static HANDLE thread;
static unsigned threadId;

static struct Job currentJob(void) {
    struct Job copy;
    AcquireSRWLockShared(&lock);
    copy = job;
    ReleaseSRWLockShared(&lock);
    return copy;
}

static struct Job* lockJob(void) {
    AcquireSRWLockExclusive(&lock);
    return &job;
}

static void unlockJob(void) {
    if (window) PostMessageA(window, NEWS, 0, 0);
    ReleaseSRWLockExclusive(&lock);
}

static void refresh(HWND self) {
    const struct Job now = currentJob();
    char title[300];
    char line[100];
    snprintf(title, sizeof title, "Printing %s", now.name);
    snprintf(line, sizeof line, "Page %u of %u, %u s left", now.page, now.pages, now.seconds);
    SetWindowTextA(self, title);
    SetDlgItemTextA(self, LINE, line);
    SendDlgItemMessageA(self, BAR, PBM_SETRANGE32, 0, (LPARAM)now.pages);
    SendDlgItemMessageA(self, BAR, PBM_SETPOS, now.page, 0);
    /* Does not take the focus from the user's work. */
    ShowWindow(self, now.isShown ? SW_SHOWNOACTIVATE : SW_HIDE);
}

static LRESULT CALLBACK handle(HWND self, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case NEWS:
            refresh(self);
            return 0;
        case WM_CLOSE: { /* the job continues without its window */
            const JswViewEventCallback tell = currentJob().tell;
            HideGui();
            if (tell) tell(JSW_STATUS_GUI_CLOSED);
            return 0;
        }
        case END:
            DestroyWindow(self);
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcA(self, message, wParam, lParam);
    }
}

static unsigned __stdcall runWindow(void* ready) {
    const DWORD style = WS_CHILD | WS_VISIBLE;
    WNDCLASSA kind = {0};
    HWND self;
    MSG message;
    InitCommonControls();
    kind.lpfnWndProc = handle;
    kind.hCursor = LoadCursorA(NULL, IDC_ARROW);
    kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    kind.lpszClassName = "JswSmallView";
    RegisterClassA(&kind); /* from the second job on it already exists */
    self = CreateWindowA(kind.lpszClassName, "", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                         400, 140, NULL, NULL, NULL, NULL);
    CreateWindowA("STATIC", "", style, 20, 20, 340, 20, self, (HMENU)(INT_PTR)LINE, NULL, NULL);
    CreateWindowA(PROGRESS_CLASSA, "", style, 20, 50, 340, 20, self, (HMENU)(INT_PTR)BAR, NULL,
                  NULL);
    lockJob();
    window = self;
    unlockJob();
    SetEvent(ready);
    while (self && GetMessageA(&message, NULL, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}

void Initialize(void) {
    const HANDLE ready = CreateEventA(NULL, TRUE, FALSE, NULL);
    Uninitialize(); /* an earlier job that was never ended */
    ZeroMemory(lockJob(), sizeof job);
    unlockJob();
    thread = (HANDLE)_beginthreadex(NULL, 0, runWindow, ready, 0, &threadId);
    if (thread) WaitForSingleObject(ready, INFINITE);
    CloseHandle(ready);
}

void Uninitialize(void) {
    lockJob()->tell = NULL;
    if (window) PostMessageA(window, END, 0, 0);
    window = NULL;
    unlockJob();
    if (!thread) return;
    /* Inside a callback this is the window's own thread: it closes after the callback returns. */
    if (threadId != GetCurrentThreadId()) WaitForSingleObject(thread, 2000);
    CloseHandle(thread);
    thread = NULL;
}

void SetJobName(const char* text) {
    snprintf(lockJob()->name, sizeof job.name, "%s", text);
    unlockJob();
}

void SetTotalPages(int32_t value) {
    lockJob()->pages = value > 0 ? (unsigned)value : 0;
    unlockJob();
}

void UpdateInfo(uint32_t value1, uint32_t value2, uint32_t value3, void* data) {
    struct Job* const changed = lockJob();
    (void)value2; /* the copy */
    (void)data;
    changed->page = value1;
    changed->seconds = value3;
    unlockJob();
}

void SetJswCallback(JswViewEventCallback callback) {
    lockJob()->tell = callback;
    unlockJob();
}

void ShowGui(void) {
    lockJob()->isShown = 1;
    unlockJob();
}

void HideGui(void) {
    lockJob()->isShown = 0;
    unlockJob();
}
