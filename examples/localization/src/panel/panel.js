// Words of the control panel
var strings = {
    start: "Start",
    stop: "Stop",
    schedule: "Schedule",
    dryRun: "Dry run protection",
    confirmStop: "Stop all pumps now?"
};
