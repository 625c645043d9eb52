fetch("data/prices.json").then((prices) => prices.json());
